# Installs the build into a scratch prefix and builds two consumers against
# it, one with find_package and one with pkg-config; each must run and
# render 1.234.567,89, and the versions of pkg-config and corvinel-fmt must
# agree.  Run with -DBUILD=<build dir> -DSCRATCH=<empty dir> -DSOURCE=<this dir>.
file(REMOVE_RECURSE "${SCRATCH}")
set(prefix "${SCRATCH}/prefix")

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${out}\n${err}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install "${BUILD}" --prefix "${prefix}")

# find_package
run(${CMAKE_COMMAND} -S "${SOURCE}/consumer" -B "${SCRATCH}/cmake-consumer"
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build "${SCRATCH}/cmake-consumer")
run("${SCRATCH}/cmake-consumer/consumer")
if(NOT output MATCHES "\\[  1\\.234\\.567,89\\]")
  message(FATAL_ERROR "the find_package consumer printed: ${output}")
endif()

# pkg-config
find_program(PKG_CONFIG pkg-config REQUIRED)
find_program(CC NAMES cc gcc REQUIRED)
set(ENV{PKG_CONFIG_PATH} "${prefix}/lib/pkgconfig")
run(${PKG_CONFIG} --cflags --libs corvinel)
string(STRIP "${output}" flags)
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${CC} -std=c11 "${SOURCE}/consumer/consumer.c" ${flags} "-Wl,-rpath,${prefix}/lib"
    -o "${SCRATCH}/pkg-consumer")
run("${SCRATCH}/pkg-consumer")
if(NOT output MATCHES "\\[  1\\.234\\.567,89\\]")
  message(FATAL_ERROR "the pkg-config consumer printed: ${output}")
endif()

run(${PKG_CONFIG} --modversion corvinel)
string(STRIP "${output}" package_version)
run("${prefix}/bin/corvinel-fmt" --version)
string(STRIP "${output}" tool_version)
if(NOT tool_version STREQUAL "corvinel-fmt ${package_version}")
  message(FATAL_ERROR "versions differ: pkg-config ${package_version}, ${tool_version}")
endif()
# The installed tool finds the installed module.
run("${prefix}/bin/corvinel-fmt" --locale de_DE NLDATE20. 2003-02-24)
if(NOT output MATCHES "Februar 2003")
  message(FATAL_ERROR "the installed corvinel-fmt printed: ${output}")
endif()
