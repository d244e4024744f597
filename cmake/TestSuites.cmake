# Run by the build after a test program is linked: asks it for its suites and writes a file that tells CTest of them, one test
# PREFIX.Suite each. A process per suite, not per case, because starting the toolkit takes longer than most cases. Suites of many
# cases come first, so that none is left alone at the end.
#   cmake -D COMMAND=[emulator;]program -D NAME=... -D PREFIX=... -D SECONDS=... -D FILE=... -P TestSuites.cmake
cmake_minimum_required(VERSION 3.25) # the program may be the only word of the command
list(REMOVE_ITEM COMMAND "") # no emulator
execute_process(COMMAND ${COMMAND} --gtest_list_tests OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\r" "" listed "${listed}")
list(TRANSFORM COMMAND REPLACE "(.+)" "[[\\1]]" OUTPUT_VARIABLE words)
list(JOIN words " " words)
string(REGEX REPLACE " *#[^\n]*" "" listed "${listed}") # parameters
string(REGEX MATCHALL "\n[^ \n]+\\.(\n  [^\n]+)+" suites "\n${listed}")
set(tests "")
foreach(lines ${suites})
    string(REGEX MATCH "[^ \n]+" suite "${lines}")
    string(REGEX REPLACE "\\.$" "" suite "${suite}")
    string(REGEX MATCHALL "\n  " cases "${lines}")
    list(LENGTH cases count)
    string(APPEND tests "add_test([[${PREFIX}.${suite}]] ${words} [[--gtest_filter=${suite}.*]])\n"
        "set_tests_properties([[${PREFIX}.${suite}]] PROPERTIES TIMEOUT ${SECONDS} RESOURCE_LOCK ${NAME} COST ${count})\n")
endforeach()
file(WRITE "${FILE}" "${tests}")
