# Helpers shared by every module: one static library per source folder, the
# project's warning flags, and one GoogleTest executable per tested module.

function(tabulon_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow
                         -Wnon-virtual-dtor -Wold-style-cast -Wimplicit-fallthrough)
  if(TABULON_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  # GCC 12 at -O3 reports a false -Wrestrict inside std::string for "literal" + string
  # (GCC bug 105329), which breaks Release builds of correct code.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(TABULON_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${TABULON_SANITIZE} -fno-omit-frame-pointer
                           -fno-sanitize-recover=all)
    # GCC's sanitizer instrumentation makes -Wmaybe-uninitialized report correct code
    # (inside <regex> and <functional>, for one); the plain build keeps the warning.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
    endif()
    target_link_options(${target} PRIVATE -fsanitize=${TABULON_SANITIZE})
  endif()
endfunction()

# tabulon_module(NAME SOURCES a.cpp ... DEPS target ...)
# Creates the static library tabulon_NAME with alias Tabulon::NAME. Headers are
# included as "NAME/header.h" relative to src/.
function(tabulon_module name)
  cmake_parse_arguments(M "" "" "SOURCES;DEPS;PRIVATE_DEPS" ${ARGN})
  add_library(tabulon_${name} STATIC ${M_SOURCES})
  target_compile_features(tabulon_${name} PUBLIC cxx_std_20)
  add_library(Tabulon::${name} ALIAS tabulon_${name})
  target_include_directories(tabulon_${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/tabulon>)
  target_link_libraries(tabulon_${name} PUBLIC ${M_DEPS} PRIVATE ${M_PRIVATE_DEPS})
  tabulon_warnings(tabulon_${name})
  set_property(GLOBAL APPEND PROPERTY TABULON_CORE_MODULES tabulon_${name})
endfunction()

# tabulon_test(NAME SOURCES a_test.cpp ... DEPS target ...)
function(tabulon_test name)
  cmake_parse_arguments(T "" "" "SOURCES;DEPS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  # nlohmann-json reads the session output back (tests/session/json_lines.h).
  target_link_libraries(${name} PRIVATE ${T_DEPS} Tabulon::testing nlohmann_json::nlohmann_json GTest::gtest GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  tabulon_warnings(${name})
  target_compile_definitions(${name} PRIVATE
    TABULON_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    TABULON_BINARY_DIR="${PROJECT_BINARY_DIR}")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
