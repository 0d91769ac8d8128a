# How every target of the project is compiled, and the two kinds of target it has.

add_library(quillon_options INTERFACE)
# No contraction anywhere: a fused step is written as one, never left to the
# compiler, so that every build gives the same bits.
target_compile_options(quillon_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -ffp-contract=off
  $<$<BOOL:${QUILLON_WERROR}>:-Werror>
  $<$<BOOL:${QUILLON_SANITIZE}>:-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer>)
target_link_options(quillon_options INTERFACE
  $<$<BOOL:${QUILLON_SANITIZE}>:-fsanitize=address,undefined>)
target_include_directories(quillon_options INTERFACE
  ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}/generated)

# quillon_library(NAME [FOLDERS folder...] [LINK library...]): a static library
# of all sources in the given folders of the project (by default the current
# one) and their sub-folders; web_pane/ is a module of its own. Kernels named for
# an instruction set are compiled for it, and only they are; they are vectors
# already, which a vectoriser can only shuffle. Kernels named rows are plain loops
# that it shall make vectors of. Of the two settings that let it neither changes a
# bit: they say that errors are looked for in the results.
function(quillon_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "FOLDERS;LINK")
  if(NOT arg_FOLDERS)
    file(RELATIVE_PATH arg_FOLDERS ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  endif()
  set(sources)
  foreach(folder IN LISTS arg_FOLDERS)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS
      ${CMAKE_SOURCE_DIR}/${folder}/*.cpp ${CMAKE_SOURCE_DIR}/${folder}/*.h)
    list(APPEND sources ${found})
  endforeach()
  list(FILTER sources EXCLUDE REGEX "main\\.cpp$|/web_pane/")
  if(NOT sources)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE quillon_options ${arg_LINK})
    return()
  endif()
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC quillon_options ${arg_LINK})
  foreach(source IN LISTS sources)
    set(options)
    if(source MATCHES "_avx512\\.cpp$")
      list(APPEND options -mavx512f -mavx512vl -mavx512dq -mavx512bw -mavx2 -mfma)
    elseif(source MATCHES "_avx2\\.cpp$")
      list(APPEND options -mavx2 -mfma)
    endif()
    if(source MATCHES "_rows_[a-z0-9]+\\.cpp$")
      list(APPEND options -O3 -fno-math-errno -fno-trapping-math)
    elseif(options)
      list(APPEND options -fno-tree-vectorize)
    endif()
    if(options)
      set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS "${options}")
    endif()
  endforeach()
endfunction()

# quillon_tests(NAME LIBRARIES...): one test program of all sources in the
# current folder.
function(quillon_tests name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARGN} quillon_test_support GTest::gtest)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 1800)
endfunction()
