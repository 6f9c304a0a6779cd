# Builds the consumer in folders whose names have blanks, changes its schemas and looks at what is made again.
# Arguments: GENERATOR, PREFIX of the installed library, FOLDER to work in, COMPILER and FLAGS of C++.

include("${CMAKE_CURRENT_LIST_DIR}/Steps.cmake")
set(source "${FOLDER}/the consumer")
set(build "${FOLDER}/the build")
set(made "${build}/bxgen/consumer")
file(REMOVE_RECURSE "${FOLDER}")
file(COPY "${CMAKE_CURRENT_LIST_DIR}/" DESTINATION "${source}")

# Builds, and sets `times` to when what is made was made last.
macro(build)
  run(0 "${CMAKE_COMMAND}" --build "${build}")
  set(times "")
  foreach(file "${made}/Shop.h" "${made}/Shop-2.cpp" "${build}/consumer" "${build}/liborders.a")
    file(TIMESTAMP "${file}" time "%s.%f")
    list(APPEND times "${time}")
  endforeach()
  # What changes in the same tick of the system's clock as a build ends is not newer to Ninja.
  execute_process(COMMAND "${CMAKE_COMMAND}" -E sleep 0.1)
endmacro()

run(0 "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G "${GENERATOR}" "-DCMAKE_PREFIX_PATH=${PREFIX}"
  "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${FLAGS}")
build()
run(0 "${build}/consumer" "${source}/order.xml")
expect("The order is read" output STREQUAL "A-17 B-3 9.5 EUR\n")
run(0 "${build}/convert" --compact "${source}/order.xml")
expect("The order is written" output MATCHES "<order xmlns=\"urn:shop\"[^>]*><item sku=\"A-17\"/>")

set(first "${times}")
build()
expect("Nothing is made again" times STREQUAL first)
expect("Nothing is generated again" NOT output MATCHES "Generating")

foreach(file "items.xsd" "more schemas/common types.xsd" "the names.txt")
  file(TOUCH "${source}/${file}")
  build()
  expect("${file} makes bxgen run" output MATCHES "Generating")
  expect("What is generated from ${file} is the same and keeps its time" times STREQUAL first)
endforeach()

file(READ "${source}/items.xsd" schema)
string(REPLACE "value=\"4\"" "value=\"3\"" schema "${schema}")
file(WRITE "${source}/items.xsd" "${schema}")
build()
expect("The changed schema makes all again" NOT times STREQUAL first)
run(1 "${build}/consumer" "${source}/order.xml")
expect("The changed schema holds" output MATCHES "sku")

string(REPLACE "itemType" "noType" schema "${schema}")
file(WRITE "${source}/items.xsd" "${schema}")
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${build}" RESULT_VARIABLE result OUTPUT_VARIABLE output
  ERROR_VARIABLE output)
expect("A wrong schema ends the build" NOT result EQUAL 0)
expect("The message has its place" output MATCHES "order.xsd:8:[0-9]+: error: ")
