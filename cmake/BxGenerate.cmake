#[=======================================================================[.rst:
BxGenerate
----------

``find_package(BxXmlLib5)`` defines this function, and so does ``add_subdirectory`` of the sources.

.. command:: bx_generate

  Makes C++ classes from XML schemas, when the project is built and whenever a schema changes::

    bx_generate(<target>
                SCHEMAS <file>...
                [NAME <name>]
                [NAMESPACES <uri>=<namespace>...]
                [ROOTS <name>...]
                [SOURCES <number>]
                [CATALOG <file>...]
                [NAMES <file>]
                [OUT_DIR <folder>]
                [PROGRAM <target>]
                [OPTIONS <option>...])

  If there is no target of that name, it is a static library. One that exists, in the same folder, gets the
  classes among its sources. Either way who links it finds the headers and links ``BxXmlLib5::BxXmlLib5``.

  A project that has only a schema and a ``main.cpp``::

    find_package(BxXmlLib5 REQUIRED)
    add_executable(shop main.cpp)            # #include "Shop.h"
    bx_generate(shop NAME Shop SCHEMAS order.xsd)

  ``SCHEMAS``
    The schemas; what they include and import is found by itself. Relative to the current source folder, as all
    files here.
  ``NAME``
    The namespace of C++, ``A`` or ``A::B``, and the name of the files: ``A.h``, ``A_B.h``. Default: the name of the
    target, with ``_`` for what no name may hold.
  ``NAMESPACES``
    Namespaces of XML whose classes go to a namespace of C++ and files of their own, such as
    ``urn:tools=Tools`` or ``urn:tools=Shop::Tools``.
  ``ROOTS``
    Elements that documents begin with, ``order`` or ``{urn:shop}order``, ``all`` or ``none``. Default: the global
    elements that nothing refers to.
  ``SOURCES``
    Into how many sources each namespace of C++ is split, so that they are compiled at the same time. One source
    for each 200 classes is a good choice. Default: 1.
  ``CATALOG``
    OASIS XML catalogs, which say where schemas are that are named by URI. Nothing is fetched from the net.
  ``NAMES``
    A file of names that are not to be made from the schema's.
  ``OUT_DIR``
    Where the files go, relative to the current binary folder. Default: ``bxgen/<target>``.
  ``PROGRAM``
    A further target, a program that reads documents of any root and writes them again. It links ``<target>``, which
    must be a library.
  ``OPTIONS``
    Other options of bxgen: ``--strip-suffix=Type``, ``--werror``, ``-q`` ... See ``bxgen --help``.

  The files that come out follow from these arguments alone, so they are known before bxgen is built. A file whose
  content stays the same is not touched, and nothing is compiled again because of it.

.. variable:: BxXmlLib5_BXGEN_EXECUTABLE

  The bxgen to run instead of the package's own or the one that the same project builds. Cross builds need one that
  runs on the machine that builds; they look for it in the path if this is not set.

.. prop_tgt:: BXGEN_OUTPUTS

  What bx_generate makes for a target, with full paths.
#]=======================================================================]

cmake_policy(PUSH)
cmake_policy(VERSION 3.25)

# Sets a variable to bxgen, a target or a file.
function(_bx_generate_tool variable)
  if(NOT BxXmlLib5_BXGEN_EXECUTABLE AND CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
    # Not where packages are, which are for the machine that is built for.
    find_program(BxXmlLib5_BXGEN_EXECUTABLE bxgen
      NO_CMAKE_FIND_ROOT_PATH NO_PACKAGE_ROOT_PATH NO_CMAKE_PATH NO_CMAKE_ENVIRONMENT_PATH NO_CMAKE_SYSTEM_PATH
      DOC "The bxgen that bx_generate runs, for the machine that builds")
    if(NOT BxXmlLib5_BXGEN_EXECUTABLE)
      message(FATAL_ERROR "bx_generate needs a bxgen that runs here: set BxXmlLib5_BXGEN_EXECUTABLE")
    endif()
  endif()
  if(BxXmlLib5_BXGEN_EXECUTABLE)
    set(tool "${BxXmlLib5_BXGEN_EXECUTABLE}")
  elseif(TARGET BxXmlLib5::bxgen)
    set(tool BxXmlLib5::bxgen)
  else()
    message(FATAL_ERROR "bx_generate finds no bxgen: set BxXmlLib5_BXGEN_EXECUTABLE, or BXXMLLIB5_BXGEN to ON "
                        "where the sources of BxXmlLib5 are part of the project")
  endif()
  set(${variable} "${tool}" PARENT_SCOPE)
endfunction()

# Sets a variable to files with full paths.
function(_bx_generate_files variable)
  set(files "")
  foreach(file IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
    list(APPEND files "${file}")
  endforeach()
  set(${variable} "${files}" PARENT_SCOPE)
endfunction()

# Sets two variables to the headers and sources of a namespace of C++.
function(_bx_generate_outputs headers_variable sources_variable namespace folder count)
  string(REPLACE "::" "_" file "${folder}/${namespace}")
  set(sources "")
  if(count EQUAL 1)
    set(sources "${file}.cpp")
  else()
    foreach(number RANGE 1 ${count})
      list(APPEND sources "${file}-${number}.cpp")
    endforeach()
  endif()
  set(${headers_variable} "${file}Fwd.h" "${file}.h" PARENT_SCOPE)
  set(${sources_variable} "${sources}" PARENT_SCOPE)
endfunction()

function(bx_generate target)
  set(single NAME SOURCES NAMES OUT_DIR PROGRAM)
  set(several SCHEMAS NAMESPACES ROOTS CATALOG OPTIONS)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "${single}" "${several}")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "bx_generate(${target}): what is this: ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT arg_SCHEMAS)
    message(FATAL_ERROR "bx_generate(${target}): SCHEMAS are missing")
  endif()
  # These change which files there are.
  set(reserved -o --out-dir -n --name --namespace-map --sources --program --depfile --stamp --list --dry-run --dump
    --help --version)
  foreach(option IN LISTS arg_OPTIONS)
    string(REGEX REPLACE "=.*" "" name "${option}")
    if(name IN_LIST reserved)
      message(FATAL_ERROR "bx_generate(${target}): ${name} is not among OPTIONS, as it is bx_generate's own")
    endif()
  endforeach()
  if(NOT DEFINED arg_NAME)
    string(MAKE_C_IDENTIFIER "${target}" arg_NAME)
  endif()
  if(NOT DEFINED arg_SOURCES)
    set(arg_SOURCES 1)
  endif()
  if(NOT DEFINED arg_OUT_DIR)
    set(arg_OUT_DIR "bxgen/${target}")
  endif()
  cmake_path(ABSOLUTE_PATH arg_OUT_DIR BASE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE)

  _bx_generate_tool(tool)
  _bx_generate_files(schemas ${arg_SCHEMAS})
  _bx_generate_files(catalogs ${arg_CATALOG})
  _bx_generate_files(names ${arg_NAMES})
  set(options --out-dir "${arg_OUT_DIR}" --name "${arg_NAME}" --sources "${arg_SOURCES}")
  set(namespaces "${arg_NAME}")
  foreach(pair IN LISTS arg_NAMESPACES)
    list(APPEND options --namespace-map "${pair}")
    string(REGEX REPLACE ".*=" "" namespace "${pair}")
    list(APPEND namespaces "${namespace}")
  endforeach()
  foreach(root IN LISTS arg_ROOTS)
    list(APPEND options --root-element "${root}")
  endforeach()
  foreach(catalog IN LISTS catalogs)
    list(APPEND options --catalog "${catalog}")
  endforeach()
  if(names)
    list(APPEND options --names "${names}")
  endif()
  if(arg_PROGRAM)
    list(APPEND options --program)
  endif()

  list(REMOVE_DUPLICATES namespaces)
  set(outputs "")
  foreach(namespace IN LISTS namespaces)
    _bx_generate_outputs(headers sources "${namespace}" "${arg_OUT_DIR}" ${arg_SOURCES})
    list(APPEND outputs ${headers} ${sources})
  endforeach()
  set(program "")
  if(arg_PROGRAM)
    string(REPLACE "::" "_" program "${arg_OUT_DIR}/${arg_NAME}Main.cpp")
  endif()

  # The stamp is what make compares with the schemas: the files keep their time where their content stays.
  set(stamp "${arg_OUT_DIR}/${target}.stamp")
  add_custom_command(
    OUTPUT "${stamp}"
    BYPRODUCTS ${outputs} ${program}
    COMMAND "${tool}" ${options} ${arg_OPTIONS} --stamp "${stamp}" --depfile "${stamp}.d" -- ${schemas}
    DEPENDS "${tool}" ${schemas} ${catalogs} ${names}
    DEPFILE "${stamp}.d"
    COMMENT "Generating ${arg_NAME} from the schemas of ${target}"
    VERBATIM)
  # One target runs bxgen, so that no two do at the same time.
  add_custom_target("${target}_bxgen" DEPENDS "${stamp}")

  if(NOT TARGET "${target}")
    add_library("${target}" STATIC)
  endif()
  target_sources("${target}" PRIVATE ${outputs})
  target_include_directories("${target}" PUBLIC "$<BUILD_INTERFACE:${arg_OUT_DIR}>")
  # By properties, as target_link_libraries wants all calls for a target to be of one kind.
  set_property(TARGET "${target}" APPEND PROPERTY LINK_LIBRARIES BxXmlLib5::BxXmlLib5)
  set_property(TARGET "${target}" APPEND PROPERTY INTERFACE_LINK_LIBRARIES BxXmlLib5::BxXmlLib5)
  set_property(TARGET "${target}" APPEND PROPERTY BXGEN_OUTPUTS ${outputs} ${program})
  add_dependencies("${target}" "${target}_bxgen")
  if(arg_PROGRAM)
    add_executable("${arg_PROGRAM}" "${program}")
    target_link_libraries("${arg_PROGRAM}" PRIVATE "${target}")
    add_dependencies("${arg_PROGRAM}" "${target}_bxgen")
  endif()
endfunction()

cmake_policy(POP)
