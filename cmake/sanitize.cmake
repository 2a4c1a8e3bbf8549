# Instrumented trees, which build and run no more than what finds faults of their kind; they take clang. Their test
# presets end a faulty process by a signal: a sanitizer's status reads as that of a skipped test or a refused picture.
set(TOLK_SANITIZE "" CACHE STRING "instrument for: address (and undefined behaviour), memory, thread; or nothing")
set_property(CACHE TOLK_SANITIZE PROPERTY STRINGS "" address memory thread)
set(TOLK_SANITIZE_LIBRARY "") # flags of the library alone

if(TOLK_SANITIZE)
  add_compile_options(-g1 -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TOLK_SANITIZE})
endif()
if(TOLK_SANITIZE STREQUAL "address")
  # Left out: sums of pointers, which take as long to compile as all others, and what faults or is found anyway.
  add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
                      -fno-sanitize=pointer-overflow,null,object-size)
  add_link_options(-fsanitize=undefined)
  set(TOLK_SANITIZE_LIBRARY -fsanitize=fuzzer-no-link) # the fuzzer follows which code an input reaches
elseif(TOLK_SANITIZE)
  set(TOLK_SANITIZE_LIBRARY -fsanitize=${TOLK_SANITIZE})
endif()
