# Runs the locale data generator into a scratch tree and compares every file
# it writes with the committed one (cmake -P; GENERATOR, SOURCE_TREE and
# OUTPUT_TREE given with -D).
set(outputs
  src/locale/data/locale_records.cpp
  src/locale/data/lconv_monetary.cpp
  src/locale/data/currency_codes.inc
  tools/locale_data/rule_changes.txt)
file(REMOVE_RECURSE "${OUTPUT_TREE}")
file(MAKE_DIRECTORY "${OUTPUT_TREE}/src/locale/data" "${OUTPUT_TREE}/tools/locale_data")
execute_process(COMMAND "${GENERATOR}" "${OUTPUT_TREE}" RESULT_VARIABLE result OUTPUT_QUIET)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the generator failed: ${result}")
endif()
set(differing "")
foreach(output IN LISTS outputs)
  execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${SOURCE_TREE}/${output}" "${OUTPUT_TREE}/${output}"
                  RESULT_VARIABLE same)
  if(NOT same EQUAL 0)
    list(APPEND differing "${output}")
  endif()
endforeach()
if(differing)
  message(FATAL_ERROR "the generator writes other contents than the committed files: ${differing} "
                      "(compare with ${OUTPUT_TREE}; regen-locale-data rewrites them)")
endif()
