# Installs a build into an empty folder and lets the program work there: it must find the rule files
# that were installed with it.
#   cmake -DBUILD=… -DPREFIX=… -P InstallTest.cmake

file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}"
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

set(program "${PREFIX}/bin/fiscarel-cli")
execute_process(COMMAND "${program}" demo COMMAND "${program}" rechne -
                OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
if(NOT text MATCHES "Total der Steuern +[1-9]")
    message(FATAL_ERROR "The installed program computes no return:\n${text}")
endif()

# The program finds the process that reads documents where it was installed.
file(WRITE "${PREFIX}/beleg.pdf" "kein Beleg")
execute_process(COMMAND "${program}" lies "${PREFIX}/beleg.pdf"
                RESULT_VARIABLE code OUTPUT_QUIET ERROR_VARIABLE text)
if(NOT code EQUAL 1 OR NOT text MATCHES "Dateiformat ist unbekannt")
    message(FATAL_ERROR "The installed program does not read documents:\n${text}")
endif()
