# Builds the consumer with the library fetched and static, by a later standard than the library's own, installs both,
# and builds with what was installed.
# Arguments: SOURCES of the library, BXGEN that is built, FOLDER to work in, GENERATOR, COMPILER and LAUNCHER of C++.

include("${CMAKE_CURRENT_LIST_DIR}/Steps.cmake")
set(source "${CMAKE_CURRENT_LIST_DIR}")
set(build "${FOLDER}/build")
set(prefix "${FOLDER}/prefix")
set(common -G "${GENERATOR}" "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}"
  -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS=-O0)
file(REMOVE_RECURSE "${prefix}" "${FOLDER}/user")

function(configure)
  run(0 "${CMAKE_COMMAND}" -S "${source}" -B "${build}" ${common} ${ARGN} "-DBXXMLLIB5_SOURCES=${SOURCES}"
    -DFETCH=ON "-DBxXmlLib5_BXGEN_EXECUTABLE=${BXGEN}" -DBUILD_SHARED_LIBS=OFF -DCMAKE_CXX_STANDARD=23
    -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_INSTALL_LIBDIR=lib)
endfunction()

configure(-DBXXMLLIB5_INSTALL=OFF)
run(0 "${CMAKE_COMMAND}" --build "${build}" --parallel)
run(0 "${build}/consumer" "${source}/order.xml")
expect("The order is read" output STREQUAL "A-17 B-3 9.5 EUR\n")
file(STRINGS "${build}/compile_commands.json" other REGEX "-std=(c..|gnu..2[^3b])")
expect("All is compiled by the standard of the project: ${other}" NOT other)

run(0 "${CMAKE_COMMAND}" --install "${build}" --prefix "${prefix}")
file(GLOB installed RELATIVE "${prefix}" "${prefix}/*/*")
expect("Only the consumer is installed: ${installed}" installed STREQUAL "bin/consumer")
configure(-DBXXMLLIB5_INSTALL=ON)
run(0 "${CMAKE_COMMAND}" --install "${build}" --prefix "${prefix}")

run(0 "${CMAKE_COMMAND}" -S "${source}" -B "${FOLDER}/user" ${common} "-DCMAKE_PREFIX_PATH=${prefix}"
  "-DBxXmlLib5_BXGEN_EXECUTABLE=${BXGEN}")
run(0 "${CMAKE_COMMAND}" --build "${FOLDER}/user" --target convert)
run(0 "${FOLDER}/user/convert" --check "${source}/order.xml")
