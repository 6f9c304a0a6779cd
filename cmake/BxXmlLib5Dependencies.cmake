# What programs link that link the static library.
include(CMakeFindDependencyMacro)
list(PREPEND CMAKE_MODULE_PATH "${CMAKE_CURRENT_LIST_DIR}")
find_dependency(Expatw)
find_dependency(ZLIB)
find_dependency(PCRE2)
list(POP_FRONT CMAKE_MODULE_PATH)
