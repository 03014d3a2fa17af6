# Installs the build into a prefix of its own, then configures, builds and runs the consumer
# against it with nothing of this tree but the sanitizers' flags and defaults, without which
# a program cannot load a library that was built with them.
#
#   cmake -D BUILD=... -D SOURCE=... -D WORK=... -D COMPILER=...
#     [-D FLAGS=...] [-D SOURCES=...] -P run.cmake
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}: ${status}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE "${WORK}")
run(${CMAKE_COMMAND} --install "${BUILD}" --prefix "${WORK}/prefix")
run(${CMAKE_COMMAND} -S "${SOURCE}" -B "${WORK}/build" -G Ninja
  -D CMAKE_BUILD_TYPE=Release -D CMAKE_CXX_COMPILER=${COMPILER}
  "-DCMAKE_CXX_FLAGS=${FLAGS}" "-DCONSUMER_SOURCES=${SOURCES}" "-DCMAKE_PREFIX_PATH=${WORK}/prefix"
  -D CMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
run(${CMAKE_COMMAND} --build "${WORK}/build")
run("${WORK}/build/consumer")

# So does the installed tarnview.
if(EXISTS "${WORK}/prefix/bin/tarnview")
  run("${WORK}/prefix/bin/tarnview" --version)
  run("${WORK}/prefix/bin/tarnview" --nodes)
endif()

# What is installed must not need this tree: no path of it in the package's files.
file(GLOB_RECURSE package_files "${WORK}/prefix/*.cmake")
foreach(package_file IN LISTS package_files)
  file(READ "${package_file}" text)
  # The prefix itself lies in the build folder here.
  string(REPLACE "${WORK}/prefix" "" without_prefix "${text}")
  string(FIND "${without_prefix}" "${BUILD}" place)
  if(NOT place EQUAL -1)
    message(FATAL_ERROR "${package_file} names ${BUILD}")
  endif()
endforeach()
