# Run by cpack between installing and packing.
file(GLOB_RECURSE manuals "${CPACK_TEMPORARY_DIRECTORY}/*.1")
foreach(manual IN LISTS manuals)
  execute_process(COMMAND gzip --best --no-name "${manual}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
