# Installs a Tabulon build into a fresh prefix and uses it as a host project would:
#   1. cmake --install into WORK_DIR/prefix; the headers installed are exactly the
#      public ones (PUBLIC_HEADERS, comma-separated, relative to include/tabulon);
#   2. configures and builds examples/minimal-host with find_package(Tabulon), and a
#      file that includes every public header, so none of them needs a header that is
#      not installed;
#   3. builds headless_host.cpp with only the flags of the installed tabulon.pc and
#      runs it on a sample (when pkg-config is there).
# Variables: BUILD_DIR, SOURCE_DIR, WORK_DIR, GENERATOR, BUILD_TYPE, CXX, PKG_CONFIG,
# PUBLIC_HEADERS.
cmake_minimum_required(VERSION 3.25)

function(run_step what)
  execute_process(COMMAND ${ARGN}
    RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed (${result}):\n${out}\n${err}")
  endif()
  set(step_output "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

run_step("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
string(REPLACE "," ";" public_headers "${PUBLIC_HEADERS}")
list(SORT public_headers)
file(GLOB_RECURSE installed_headers RELATIVE ${prefix}/include/tabulon ${prefix}/include/tabulon/*)
list(SORT installed_headers)
if(NOT installed_headers STREQUAL public_headers)
  message(FATAL_ERROR "installed headers:\n  ${installed_headers}\nnot the public ones:\n  ${public_headers}")
endif()

# Every public header, through the installed package only.
set(every_header ${WORK_DIR}/every-header)
set(includes "")
foreach(header IN LISTS public_headers)
  string(APPEND includes "#include \"${header}\"\n")
endforeach()
file(WRITE ${every_header}/every_header.cpp "${includes}")
file(WRITE ${every_header}/CMakeLists.txt [=[
cmake_minimum_required(VERSION 3.25)
project(EveryHeader LANGUAGES CXX)
find_package(Tabulon 1.0 REQUIRED COMPONENTS widgets)
add_library(every_header OBJECT every_header.cpp)
target_link_libraries(every_header PRIVATE Tabulon::widgets)
]=])
run_step("configuring the header check"
  ${CMAKE_COMMAND} -S ${every_header} -B ${every_header}/build -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${prefix})
run_step("compiling every public header" ${CMAKE_COMMAND} --build ${every_header}/build)

run_step("configuring the example"
  ${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/minimal-host -B ${WORK_DIR}/minimal-host
  -G ${GENERATOR} -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_CXX_COMPILER=${CXX}
  -DCMAKE_PREFIX_PATH=${prefix})
run_step("building the example" ${CMAKE_COMMAND} --build ${WORK_DIR}/minimal-host)

if(PKG_CONFIG)
  file(GLOB pc_dirs ${prefix}/lib*/pkgconfig ${prefix}/lib/*/pkgconfig)
  list(JOIN pc_dirs ":" pc_path)
  set(ENV{PKG_CONFIG_PATH} "${pc_path}")
  run_step("pkg-config tabulon" ${PKG_CONFIG} --cflags --libs tabulon)
  string(STRIP "${step_output}" flags)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  run_step("pkg-config tabulon-widgets" ${PKG_CONFIG} --exists --print-errors tabulon-widgets)
  set(program ${WORK_DIR}/headless_host)
  run_step("building headless_host with tabulon.pc"
    ${CXX} ${SOURCE_DIR}/tests/packaging/headless_host.cpp -o ${program} ${flags})
  run_step("running headless_host" ${program} ${SOURCE_DIR}/samples/english.xml)
  if(NOT step_output STREQUAL "columns 1080,1080,1080,1080\n")
    message(FATAL_ERROR "headless_host printed \"${step_output}\", not \"columns 1080,1080,1080,1080\"")
  endif()
endif()
message(STATUS "installed, example and pkg-config host built in ${WORK_DIR}")
