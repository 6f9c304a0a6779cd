# What find_package(BxXmlLib5) reads: the targets BxXmlLib5::BxXmlLib5 and BxXmlLib5::bxgen, and bx_generate.
include("${CMAKE_CURRENT_LIST_DIR}/BxXmlLib5Dependencies.cmake" OPTIONAL)
include("${CMAKE_CURRENT_LIST_DIR}/BxXmlLib5Targets.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/BxXmlLib5Tools.cmake" OPTIONAL)
include("${CMAKE_CURRENT_LIST_DIR}/BxGenerate.cmake")
