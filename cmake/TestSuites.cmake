# Run by the build after a test program is linked: asks it for its suites and writes a file that tells CTest of them, one test
# PREFIX.Suite each. A process per suite, not per case, because starting the toolkit takes longer than most cases.
#   cmake -D PROGRAM=... -D NAME=... -D PREFIX=... -D FILE=... -P TestSuites.cmake
execute_process(COMMAND "${PROGRAM}" --gtest_list_tests OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\n[^ \n]+\\." suites "\n${listed}")
set(tests "")
foreach(suite ${suites})
    string(REGEX REPLACE "\n|\\.$" "" suite "${suite}")
    string(APPEND tests "add_test([[${PREFIX}.${suite}]] [[${PROGRAM}]] [[--gtest_filter=${suite}.*]])\n"
        "set_tests_properties([[${PREFIX}.${suite}]] PROPERTIES TIMEOUT 300 RESOURCE_LOCK ${NAME})\n")
endforeach()
file(WRITE "${FILE}" "${tests}")
