# What the program links of its system: FERROLYN_CORE_LIBRARIES for files, digests and the rest of src/system,
# FERROLYN_DESKTOP_LIBRARIES for the desktop's windows. And the two libraries of the command line, which are headers alone.
# FERROLYN_OTHER_SYSTEMS matches the names of source files that are for another system; a suite of tests may take
# FERROLYN_SUITE_SECONDS.
set(other_systems Linux Windows)
list(REMOVE_ITEM other_systems ${CMAKE_SYSTEM_NAME})
set(FERROLYN_OTHER_SYSTEMS "[^/](${other_systems})(Test)?\\.cpp$")
if(WIN32)
    set(FERROLYN_CORE_LIBRARIES bcrypt)
    set(FERROLYN_DESKTOP_LIBRARIES "")
    # Names in Unicode, the calls of Windows 10, and none of the header's macros min and max.
    add_compile_definitions(UNICODE _UNICODE _WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX)
    # Beside these headers stand those of this machine's system, which are not for Windows.
    set(headers "${CMAKE_BINARY_DIR}/headers")
    file(MAKE_DIRECTORY "${headers}")
    foreach(library CLI nlohmann)
        file(CREATE_LINK "/usr/include/${library}" "${headers}/${library}" SYMBOLIC)
    endforeach()
    foreach(target CLI11::CLI11 nlohmann_json::nlohmann_json)
        add_library(${target} INTERFACE IMPORTED)
        target_include_directories(${target} INTERFACE "${headers}")
    endforeach()
    # Built programs run under Wine, to which this machine's root is the drive Z.
    set(FERROLYN_ROOT Z:)
    set(FERROLYN_SUITE_SECONDS 900)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=libstdc++-6.dll OUTPUT_VARIABLE library OUTPUT_STRIP_TRAILING_WHITESPACE)
    get_filename_component(FERROLYN_RUNTIME "${library}" DIRECTORY)
    set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_BINARY_DIR}/wine.sh")
    configure_file("${CMAKE_SOURCE_DIR}/tools/windows/wine.sh.in" "${CMAKE_CROSSCOMPILING_EMULATOR}" @ONLY)
else()
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)
    pkg_check_modules(NETTLE REQUIRED IMPORTED_TARGET nettle)
    set(FERROLYN_SUITE_SECONDS 300)
    set(FERROLYN_CORE_LIBRARIES PkgConfig::NETTLE)
    set(FERROLYN_DESKTOP_LIBRARIES PkgConfig::XCB)
    find_package(CLI11 REQUIRED)
    find_package(nlohmann_json REQUIRED)
endif()

# The test library; Debian has it built for its own system alone, and its source.
function(ferrolyn_find_gtest)
    if(NOT WIN32)
        find_package(GTest REQUIRED GLOBAL)
    elseif(NOT TARGET GTest::gmock)
        add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
    endif()
endfunction()
