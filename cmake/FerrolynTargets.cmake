# What every target of the project shares: warnings, sanitizers, include root; and one function per kind of target.

# Applies the project's compiler settings to a target.
function(ferrolyn_settings target)
    target_include_directories(${target} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
        -Woverloaded-virtual -Wnon-virtual-dtor -Wcast-qual -Wnull-dereference -Wdouble-promotion -Wformat=2)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE -Wno-restrict) # g++ 12 invents it for "text" + std::string when optimising
    endif()
    if(WIN32)
        target_compile_options(${target} PRIVATE -Wno-null-dereference -Wno-array-bounds) # and these inside other people's headers
    endif()
    if(FERROLYN_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(FERROLYN_SANITIZE)
        target_compile_options(${target} PUBLIC -fsanitize=${FERROLYN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PUBLIC -fsanitize=${FERROLYN_SANITIZE})
    endif()
endfunction()

# A static library from the .cpp files given.
function(ferrolyn_library name)
    add_library(${name} STATIC ${ARGN})
    ferrolyn_settings(${name})
endfunction()

# What a system shows of a program itself: on Windows its icon, its version and what it knows of screens and paths.
function(ferrolyn_program target description)
    if(NOT WIN32)
        return()
    endif()
    set(PROGRAM ${target})
    set(DESCRIPTION "${description}")
    configure_file("${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc" @ONLY)
    target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
endfunction()

# A test program from every .cpp file of one folder below tests/; each of its suites is a test "folder.Suite" of CTest.
# Suites of one program share its folder (help files lie there), so they never run side by side; programs do. A file whose name ends
# with LinuxTest or WindowsTest is for that system alone.
#   ferrolyn_test(NAME folder LIBS libraries...)
function(ferrolyn_test name folder)
    cmake_parse_arguments(arg "" "" "LIBS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
    list(FILTER sources EXCLUDE REGEX "${FERROLYN_OTHER_SYSTEMS}")
    if(NOT sources)
        message(FATAL_ERROR "no tests in ${CMAKE_CURRENT_SOURCE_DIR}/${folder}")
    endif()
    add_executable(${name} ${sources})
    ferrolyn_settings(${name})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/${folder}")
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
    target_compile_definitions(${name} PRIVATE FERROLYN_SOURCE_DIR="${FERROLYN_ROOT}${CMAKE_SOURCE_DIR}")
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Fixtures have no other linkage when several tests are compiled as one source.
        target_compile_options(${name} PRIVATE -Wno-subobject-linkage)
    endif()
    target_link_libraries(${name} PRIVATE ${arg_LIBS})
    if("test_support" IN_LIST arg_LIBS)
        target_precompile_headers(${name} REUSE_FROM test_support)
    endif()
    set(suites "${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake")
    if(NOT EXISTS "${suites}")
        file(WRITE "${suites}" "add_test(${name}_NOT_BUILT ${name}_NOT_BUILT)\n") # a test that fails
    endif()
    add_custom_command(TARGET ${name} POST_BUILD BYPRODUCTS "${suites}"
        COMMAND ${CMAKE_COMMAND} -D "COMMAND=${CMAKE_CROSSCOMPILING_EMULATOR};$<TARGET_FILE:${name}>" -D NAME=${name} -D PREFIX=${folder}
            -D SECONDS=${FERROLYN_SUITE_SECONDS} -D FILE=${suites}
            -P "${CMAKE_SOURCE_DIR}/cmake/TestSuites.cmake"
        VERBATIM)
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${suites}")
endfunction()

# Copies the guide and the help texts of the dialogs into a folder: they lie beside the program that shows them.
function(ferrolyn_help_texts folder)
    file(GLOB texts CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/docs/readme.txt" "${CMAKE_SOURCE_DIR}/docs/help/*.txt")
    foreach(text ${texts})
        get_filename_component(name "${text}" NAME)
        configure_file("${text}" "${folder}/${name}" COPYONLY)
    endforeach()
endfunction()
