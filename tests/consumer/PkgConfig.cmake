# Builds the consumer by hand, with pkg-config and the compiler alone.
# Arguments: PREFIX and LIBDIR of the installed library, FOLDER to work in, COMPILER and FLAGS of C++,
# BXGEN if it is not installed.

include("${CMAKE_CURRENT_LIST_DIR}/Steps.cmake")
set(source "${CMAKE_CURRENT_LIST_DIR}")
cmake_path(APPEND PREFIX "${LIBDIR}" OUTPUT_VARIABLE libraries)
set(ENV{PKG_CONFIG_PATH} "${libraries}/pkgconfig")
set(ENV{LD_LIBRARY_PATH} "${libraries}")
file(REMOVE_RECURSE "${FOLDER}")

if(NOT BXGEN)
  run(0 pkg-config --variable=bxgen bxxmllib5)
  separate_arguments(BXGEN UNIX_COMMAND "${output}")
endif()
run(0 "${BXGEN}" -q --name Shop --strip-suffix Type --namespace-map urn:shop:common=Shop::Common --root-element order
  --catalog "${source}/the catalog.xml" --names "${source}/the names.txt" --out-dir "${FOLDER}" "${source}/order.xsd")
run(0 pkg-config --cflags --libs bxxmllib5)
separate_arguments(options UNIX_COMMAND "${output}")
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
run(0 "${COMPILER}" -std=c++20 ${flags} "${source}/main.cpp" "${FOLDER}/Shop.cpp" "${FOLDER}/Shop_Common.cpp"
  "-I${FOLDER}" ${options} -o "${FOLDER}/program")
run(0 "${FOLDER}/program" "${source}/order.xml")
expect("The order is read" output STREQUAL "A-17 B-3 9.5 EUR\n")
