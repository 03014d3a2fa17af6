# Runs PROGRAM into the file PRINTED and compares that with the file COMMITTED.
execute_process(COMMAND "${PROGRAM}" OUTPUT_FILE "${PRINTED}" COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${PRINTED}" "${COMMITTED}"
  RESULT_VARIABLE different)
if(different)
  message(FATAL_ERROR "${COMMITTED} is not what its program prints; see ${PRINTED}")
endif()
