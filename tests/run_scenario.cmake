# Runs one scenario script on an empty data folder and compares standard output with the
# .expected file next to it.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
# The operator's own settings (a keyer backend, a rig) must not reach a scenario: it gets an
# empty configuration folder of its own.
file(MAKE_DIRECTORY ${WORK}/config)
set(ENV{XDG_CONFIG_HOME} ${WORK}/config)
string(REGEX REPLACE "\\.script$" ".expected" EXPECTED ${SCRIPT})
execute_process(COMMAND ${DRIVER} --data-dir ${WORK}/data ${SCRIPT}
                OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc
                WORKING_DIRECTORY ${WORK})
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "hfcontest-script exited ${rc}: ${err}")
endif()
file(READ ${EXPECTED} want)
if(NOT out STREQUAL want)
  file(WRITE ${WORK}/actual.txt "${out}")
  message(FATAL_ERROR "output differs from ${EXPECTED}; actual output in ${WORK}/actual.txt")
endif()
