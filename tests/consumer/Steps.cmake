# What the checks of consumers are made of.

# run(STATUS COMMAND...): runs a command that must end so; sets `output`.
function(run status)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL status)
    message(FATAL_ERROR "${ARGN} ends with ${result}, not ${status}:\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# expect(WHAT CONDITION...)
macro(expect what)
  if(NOT (${ARGN}))
    message(FATAL_ERROR "${what}\n${output}")
  endif()
endmacro()
