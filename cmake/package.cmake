# Debian packages: `cpack` in the build folder writes libtolkcolor2022, libtolkcolor-dev, tolkcolor-tools, tolkcolor-doc
# and python3-tolkcolor.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "TolkColor developers <tolkcolor@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/packaging/config.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/finish.cmake)
set(CPACK_TOLK_PACKAGING ${PROJECT_SOURCE_DIR}/packaging)
set(CPACK_TOLK_RELEASED ${TOLK_RELEASED})
set(same_version "libtolkcolor${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libtolkcolor${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/shlibs
                                               ${PROJECT_SOURCE_DIR}/packaging/triggers)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "image colour conversion, exact to the bit - library
Conversions between RGB, YCbCr, YCoCg, gray, XYZ, LUV, Lab, HLS, HSV and
PhotoYCC images in caller-owned memory, at the speed of hand-written vector
code and with every output bit defined; also gamma, colour matrices,
dithering, tone mapping and demosaicing.
.
The package holds the library twice: for every 64-bit x86 processor with
SSSE3, and for those with AVX2, which the dynamic loader picks by itself.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libtolkcolor-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${same_version}")
set(CPACK_DEBIAN_DEV_DESCRIPTION "image colour conversion, exact to the bit - development files
Conversions between RGB, YCbCr, YCoCg, gray, XYZ, LUV, Lab, HLS, HSV and
PhotoYCC images in caller-owned memory.
.
The package holds the header for C and C++, the pages of section 3, and what
CMake and pkg-config need.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME tolkcolor-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${same_version}")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "image colour conversion, exact to the bit - command-line tool
The tool tolk converts pictures and raw video frames between colour spaces
and memory layouts, shows the channels of a space, and calls any function of
the library TolkColor by its name.")

set(CPACK_DEBIAN_DOC_PACKAGE_NAME tolkcolor-doc)
set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOC_DESCRIPTION "image colour conversion, exact to the bit - documentation
The guide to the library TolkColor, the reference of its functions, and
examples.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-tolkcolor)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "libtolkcolor${PROJECT_VERSION_MAJOR} (>= ${PROJECT_VERSION}), python3:any, python3-numpy")
set(CPACK_DEBIAN_PYTHON_DESCRIPTION "image colour conversion, exact to the bit - Python module
Every function of the library TolkColor over NumPy arrays, and conversions
by the names of formats.")

include(CPack)
foreach(component IN ITEMS runtime dev doc)
  cpack_add_component(${component})
endforeach()
if(TOLK_PYTHON)
  cpack_add_component(python)
endif()
if(TOLK_TOOLS)
  cpack_add_component(tools)
endif()
