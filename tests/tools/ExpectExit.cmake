# Runs COMMAND (its words joined by "|") and fails unless it exits with EXIT and, when given, its standard error
# matches STDERR and does not match NOT_STDERR.
string(REPLACE "|" ";" COMMAND "${COMMAND}")
execute_process(COMMAND ${COMMAND} RESULT_VARIABLE code ERROR_VARIABLE err OUTPUT_VARIABLE out)
if(NOT code STREQUAL EXIT)
  message(FATAL_ERROR "exit ${code}, expected ${EXIT}\nstderr: ${err}")
endif()
if(DEFINED STDERR AND NOT err MATCHES "${STDERR}")
  message(FATAL_ERROR "standard error does not match \"${STDERR}\":\n${err}")
endif()
if(DEFINED NOT_STDERR AND err MATCHES "${NOT_STDERR}")
  message(FATAL_ERROR "standard error matches \"${NOT_STDERR}\":\n${err}")
endif()
