# The reference and the guide as HTML: target `reference`, in ${TOLK_REFERENCE_HTML}.
find_program(TOLK_DOXYGEN doxygen)
find_path(TOLK_AWESOME_CSS doxygen-awesome.css PATHS /usr/share/doxygen-awesome-css NO_DEFAULT_PATH)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
file(GLOB reference_inputs CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/guide/*.md
     ${PROJECT_SOURCE_DIR}/tools/reference/* ${PROJECT_SOURCE_DIR}/examples/*)
if(NOT TOLK_DOXYGEN OR NOT TOLK_AWESOME_CSS)
  message(STATUS "no reference: it takes doxygen and doxygen-awesome-css")
  return()
endif()

set(reference_folder ${PROJECT_BINARY_DIR}/reference)
set(TOLK_REFERENCE_HTML ${reference_folder}/html)
set(reference_sources ${PROJECT_SOURCE_DIR}/tools/reference)
set(reference_pages "") # in the order of the menu
foreach(page IN ITEMS index choosing images exactness threads other_libraries)
  string(APPEND reference_pages " \"${PROJECT_SOURCE_DIR}/docs/guide/${page}.md\"")
endforeach()
configure_file(${reference_sources}/Doxyfile.in ${reference_folder}/reference.doxygen @ONLY)
add_custom_command(
  OUTPUT ${TOLK_REFERENCE_HTML}/index.html
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${reference_folder}/input ${TOLK_REFERENCE_HTML}
  COMMAND ${TOLK_DOXYGEN} -w html header.html footer.html style.css
  COMMAND Python3::Interpreter ${reference_sources}/make_reference.py ${PROJECT_SOURCE_DIR}/include/tolkcolor.h
          ${reference_folder}
  COMMAND ${TOLK_DOXYGEN} reference.doxygen
  DEPENDS ${reference_inputs} ${PROJECT_SOURCE_DIR}/include/tolkcolor.h
          ${PROJECT_SOURCE_DIR}/tools/catalogue/make_table.py
  WORKING_DIRECTORY ${reference_folder} VERBATIM)
if(TOLK_REFERENCE)
  set(part_of_all ALL)
endif()
add_custom_target(reference ${part_of_all} DEPENDS ${TOLK_REFERENCE_HTML}/index.html)
