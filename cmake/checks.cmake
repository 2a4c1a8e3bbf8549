# Checks of the build and of the installed tree, run by ctest.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(checks ${PROJECT_SOURCE_DIR}/tools/checks)

function(tolk_check name)
  add_test(NAME check.${name} COMMAND ${ARGN})
endfunction()

tolk_check(layers ${Python3_EXECUTABLE} ${checks}/layers.py ${PROJECT_SOURCE_DIR})
tolk_check(format ${checks}/format.sh ${PROJECT_SOURCE_DIR})
set(files "")
foreach(class IN LISTS TOLK_CLASSES)
  string(REGEX MATCH "v3$" kind ${class})
  if(NOT kind)
    set(kind base)
  endif()
  list(APPEND files $<TARGET_FILE:${class}>)
  tolk_check(instructions.${kind} ${Python3_EXECUTABLE} ${checks}/instructions.py ${kind} $<TARGET_FILE:${class}>)
  tolk_check(dependencies.${kind} ${Python3_EXECUTABLE} ${checks}/dependencies.py ${kind} $<TARGET_FILE:${class}>)
endforeach()
tolk_check(exports ${Python3_EXECUTABLE} ${checks}/exports.py ${checks}/abi.txt
           ${PROJECT_SOURCE_DIR}/include/tolkcolor.h ${files})
tolk_check(abi ${checks}/abi.sh ${Python3_EXECUTABLE} ${CMAKE_C_COMPILER} ${PROJECT_SOURCE_DIR}/include/tolkcolor.h
           ${checks}/abi.txt ${PROJECT_BINARY_DIR}/abi)
set_tests_properties(check.abi PROPERTIES SKIP_RETURN_CODE 77)

# The installed tree, used as a stranger would: no CMake, only the header's and the library's folder.
set(prefix ${PROJECT_BINARY_DIR}/installed)
set(folder ${prefix}/${CMAKE_INSTALL_LIBDIR})
tolk_check(install sh -ec "rm -rf '${prefix}' && '${CMAKE_COMMAND}' --install . --prefix '${prefix}'")
set_tests_properties(check.install PROPERTIES FIXTURES_SETUP installed)

# tolk_installed_program(source): compiles it against the installed tree into the prefix.
function(tolk_installed_program source)
  get_filename_component(name ${source} NAME_WE)
  set(compiler ${CMAKE_C_COMPILER})
  if(source MATCHES "cpp$")
    set(compiler ${CMAKE_CXX_COMPILER} -std=c++20 -pthread)
  endif()
  tolk_check(compile.${name} ${compiler} -Wall -Wextra -Wpedantic -Werror ${PROJECT_SOURCE_DIR}/${source}
             -I${prefix}/include -L${folder} -ltolkcolor -o ${prefix}/${name})
  set_tests_properties(check.compile.${name} PROPERTIES FIXTURES_REQUIRED installed FIXTURES_SETUP ${name})
endfunction()

# tolk_example(source output): a program that prints what matches
function(tolk_example source output)
  tolk_installed_program(${source})
  get_filename_component(name ${source} NAME_WE)
  tolk_check(example.${name} ${prefix}/${name})
  set_tests_properties(check.example.${name} PROPERTIES FIXTURES_REQUIRED ${name} ENVIRONMENT LD_LIBRARY_PATH=${folder}
    PASS_REGULAR_EXPRESSION ${output})
endfunction()

tolk_example(examples/planar_round_trip.c
  "82 90 240 -> 255 1 0\n145 54 34 -> 0 255 1\n41 240 110 -> 0 0 255\n153 99 153 -> 199 151 101\n")
tolk_example(examples/bottom_up.c "the last column was left out\n33 114, 128 128\n")
tolk_example(examples/two_steps.c "white: X 62288, Y 65535, Z 65535\n")
tolk_example(examples/row_bands.cpp "bands equal, tiles of 64 columns equal, of 100 columns differ\n")

# Every function's example of the reference, in one program.
set(all_examples ${CMAKE_CURRENT_BINARY_DIR}/all_examples.c)
set(make_reference ${PROJECT_SOURCE_DIR}/tools/reference/make_reference.py)
add_custom_command(OUTPUT ${all_examples}
  COMMAND Python3::Interpreter ${make_reference} ${PROJECT_SOURCE_DIR}/include/tolkcolor.h --examples > ${all_examples}
  DEPENDS ${reference_inputs} ${PROJECT_SOURCE_DIR}/include/tolkcolor.h
          ${PROJECT_SOURCE_DIR}/tools/catalogue/make_table.py
  VERBATIM)
add_executable(all_examples ${all_examples})
target_compile_options(all_examples PRIVATE -Wall -Wextra -Wpedantic -Werror)
target_link_libraries(all_examples PRIVATE tolkcolor)
tolk_check(reference_examples all_examples)

tolk_installed_program(tools/checks/loaded_library.c)
tolk_check(loader_choice ${checks}/loader_choice.sh ${prefix}/loaded_library ${folder}
           $<IF:$<BOOL:${TOLK_V3_LIBRARY}>,yes,no>)
set_tests_properties(check.loader_choice PROPERTIES FIXTURES_REQUIRED loaded_library)

tolk_check(consumers ${checks}/consumers.sh ${PROJECT_SOURCE_DIR}/tests/consumers
           ${PROJECT_SOURCE_DIR}/examples/planar_round_trip.c ${PROJECT_BINARY_DIR}/consumers ${prefix} ${folder})
set_tests_properties(check.consumers PROPERTIES FIXTURES_REQUIRED installed)

if(TOLK_TOOLS AND TOLK_PYTHON)
  tolk_check(packages ${checks}/packages.sh ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR}/examples/planar_round_trip.c)
  set_tests_properties(check.packages PROPERTIES FIXTURES_REQUIRED installed) # one `cmake --install` at a time
endif()
