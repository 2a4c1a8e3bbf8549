# The library, once per processor class: same sources, other flags. The system's loader picks the class.
set(TOLK_SOURCES
    chroma/filter.cpp
    chroma/interlace.cpp
    chroma/layouts_411.cpp
    chroma/layouts_420.cpp
    chroma/layouts_422.cpp
    chroma/resampling.cpp
    chroma/stripes.cpp
    demosaic/ahd.cpp
    demosaic/cfa.cpp
    demosaic/vng.cpp
    depth/one_bit.cpp
    depth/reduce_bits.cpp
    depth/tone_map.cpp
    frame/cache_size.cpp
    frame/version.cpp
    lumachroma/decoders_420.cpp
    lumachroma/decoders_422.cpp
    lumachroma/encoder_filtered.cpp
    lumachroma/encoders_420.cpp
    lumachroma/encoders_422.cpp
    lumachroma/encoder_gamma.cpp
    lumachroma/v210.cpp
    lumachroma/ycbcr.cpp
    lumachroma/yuv.cpp
    lumachroma/yuv_decoders.cpp
    lumachroma/yuv_encoders.cpp
    spaces/gamma.cpp
    spaces/gray.cpp
    spaces/hls.cpp
    spaces/hsv.cpp
    spaces/lab.cpp
    spaces/luv.cpp
    spaces/photoycc.cpp
    spaces/xyz.cpp
    values/pack12.cpp
    values/twist.cpp
    values/ycocg.cpp)

# The gamma tables are calculated by a program of the build, once for all classes.
add_executable(make_gamma_tables tools/make_gamma_tables.cpp)
set(gamma_tables ${PROJECT_BINARY_DIR}/gamma_tables.cpp)
add_custom_command(OUTPUT ${gamma_tables} COMMAND make_gamma_tables > ${gamma_tables} DEPENDS make_gamma_tables VERBATIM)
list(APPEND TOLK_SOURCES ${gamma_tables})

set(TOLK_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wno-psabi)
if(TOLK_WERROR)
  list(APPEND TOLK_WARNINGS -Werror)
endif()

# tolk_library(target FLAGS flags...)
function(tolk_library target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "FOLDER" "FLAGS")
  add_library(${target} SHARED ${TOLK_SOURCES})
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                                              $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
                                       PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_options(${target} PRIVATE ${TOLK_WARNINGS} -ffp-contract=off -fno-exceptions -fno-rtti
                                           -fno-math-errno -fvisibility-inlines-hidden ${TOLK_SANITIZE_LIBRARY}
                                           ${arg_FLAGS})
  target_link_options(${target} PRIVATE $<$<NOT:$<BOOL:${TOLK_SANITIZE}>>:-Wl,--no-undefined>
                                        -Wl,--as-needed
                                        -Wl,--version-script=${PROJECT_SOURCE_DIR}/frame/exports.map)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME tolkcolor VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    CXX_VISIBILITY_PRESET hidden LINK_DEPENDS ${PROJECT_SOURCE_DIR}/frame/exports.map
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${arg_FOLDER})
endfunction()

set(TOLK_V3_FOLDER glibc-hwcaps/x86-64-v3)
tolk_library(tolkcolor FOLDER lib FLAGS -mssse3)
set(TOLK_CLASSES tolkcolor)

if(TOLK_V3_LIBRARY)
  tolk_library(tolkcolor_v3 FOLDER lib/${TOLK_V3_FOLDER} FLAGS -mavx2)
  target_link_options(tolkcolor_v3 PRIVATE -Wl,-z,x86-64-v3)
  list(APPEND TOLK_CLASSES tolkcolor_v3)
endif()

# The same sources pixel by pixel on plain integers: the benchmark's measure of "plain scalar code". Never installed.
set(TOLK_TESTED ${TOLK_CLASSES})
if(TOLK_BENCH OR (TOLK_TESTS AND NOT TOLK_SANITIZE))
  tolk_library(tolkcolor_plain FOLDER plain FLAGS -mssse3 -DTOLK_PLAIN -O2
    $<IF:$<CXX_COMPILER_ID:GNU>,-fno-tree-vectorize,-fno-vectorize> $<$<CXX_COMPILER_ID:Clang>:-fno-slp-vectorize>)
  list(APPEND TOLK_TESTED tolkcolor_plain)
endif()
