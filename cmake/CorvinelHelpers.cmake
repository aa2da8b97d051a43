# Helpers shared by the subsystem directories, so that a new subsystem only
# touches its own CMakeLists.txt.

# All subdirectories of DIR that carry a CMakeLists.txt, in name order.
function(corvinel_add_subdirectories dir)
  file(GLOB children LIST_DIRECTORIES true "${dir}/*")
  list(SORT children)
  foreach(child IN LISTS children)
    if(IS_DIRECTORY "${child}" AND EXISTS "${child}/CMakeLists.txt")
      add_subdirectory("${child}")
    endif()
  endforeach()
endfunction()

# corvinel_add_test(NAME source... [WITH_SESSION_LOCALES] [SHARDS n])
# One GoogleTest executable linked against the module's objects (internal
# symbols visible), registered with CTest as one test, or as n tests that
# each run a shard of its cases (so that ctest -j spreads a long suite).
# WITH_SESSION_LOCALES compiles the session locales of
# tests/support/session_locales.h (UTF-8, ISO-8859-1, EUC-JP, ...) once,
# before the first test, into a directory of the build tree that LOCPATH
# names.
function(corvinel_add_test name)
  cmake_parse_arguments(TEST "WITH_SESSION_LOCALES" "SHARDS" "" ${ARGN})
  if(NOT TEST_SHARDS)
    set(TEST_SHARDS 1)
  endif()
  add_executable(${name} ${TEST_UNPARSED_ARGUMENTS})
  if(TEST_WITH_SESSION_LOCALES)
    target_sources(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests/support/session_locales_environment.cpp")
  endif()
  target_compile_definitions(${name} PRIVATE
    CORVINEL_TEST_LOCPATH="${PROJECT_BINARY_DIR}/tests/session-locales")
  target_link_libraries(${name} PRIVATE corvinel_objects corvinel_test_support GTest::gtest GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}/tests")
  if(CORVINEL_SANITIZE)
    # The module's own code keeps its optimisation under the sanitizers; the
    # test code itself compiles much faster without.
    target_compile_options(${name} PRIVATE -O0)
  endif()
  math(EXPR last_shard "${TEST_SHARDS} - 1")
  foreach(shard RANGE ${last_shard})
    if(TEST_SHARDS EQUAL 1)
      set(test_name ${name})
    else()
      set(test_name ${name}.${shard})
    endif()
    add_test(NAME ${test_name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${test_name} PROPERTIES ENVIRONMENT
      "CORVINEL_MODULE=$<TARGET_FILE:corvinel>;CORVINEL_FMT=$<TARGET_FILE:corvinel-fmt>;GTEST_TOTAL_SHARDS=${TEST_SHARDS};GTEST_SHARD_INDEX=${shard}")
  endforeach()
endfunction()

# corvinel_add_generator(NAME COMMAND cmd... [DEPENDS target...])
# A target regen-NAME that rewrites committed generated sources in the source
# tree. Generators run on demand only, never as part of the normal build;
# regen-all runs every one of them (CI then checks that git sees no change).
function(corvinel_add_generator name)
  cmake_parse_arguments(GEN "" "" "COMMAND;DEPENDS" ${ARGN})
  add_custom_target(regen-${name}
    COMMAND ${GEN_COMMAND}
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    COMMENT "Regenerating ${name}"
    VERBATIM)
  if(GEN_DEPENDS)
    add_dependencies(regen-${name} ${GEN_DEPENDS})
  endif()
  add_dependencies(regen-all regen-${name})
endfunction()
