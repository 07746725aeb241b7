# Installing Tabulon for hosts that link it:
#   include/tabulon/<folder>/<file>.h     every header of the core and the Qt front end,
#                                         so "control/generic_sp_control.h" and
#                                         "qt/spreadsheet_widget.h" resolve with
#                                         include/tabulon on the include path
#   lib/libtabulon_*.a                    the core's module libraries and tabulon_widgets
#   lib/cmake/Tabulon/                    find_package(Tabulon [COMPONENTS core widgets])
#                                         giving Tabulon::core and Tabulon::widgets (and
#                                         every module as Tabulon::<module>)
#   lib/pkgconfig/tabulon.pc              the core for builds without CMake
#   lib/pkgconfig/tabulon-widgets.pc      the Qt front end (needs Qt6Widgets.pc)
#
# Decisions:
# - Every header is installed, not a chosen "public" few: the public headers include
#   the layers below them, and the libraries are static, so a host needs them all.
# - The pkg-config files find their prefix from their own place (${pcfiledir}), so an
#   installed tree can be moved, as the CMake package can.
include(CMakePackageConfigHelpers)

set(TABULON_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Tabulon)
set(TABULON_INSTALL_PKGCONFIGDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# --- libraries: exported as Tabulon::<module>, Tabulon::core, Tabulon::widgets
get_property(tabulon_modules GLOBAL PROPERTY TABULON_CORE_MODULES)
foreach(module IN LISTS tabulon_modules)
  string(REGEX REPLACE "^tabulon_" "" export_name ${module})
  set_target_properties(${module} PROPERTIES EXPORT_NAME ${export_name})
endforeach()
set_target_properties(tabulon_core PROPERTIES EXPORT_NAME core)
set(tabulon_installed ${tabulon_modules} tabulon_core)
set(TABULON_PACKAGE_HAS_WIDGETS OFF)
if(TARGET tabulon_widgets)
  set_target_properties(tabulon_widgets PROPERTIES EXPORT_NAME widgets)
  list(APPEND tabulon_installed tabulon_widgets)
  set(TABULON_PACKAGE_HAS_WIDGETS ON)
endif()

install(TARGETS ${tabulon_installed}
  EXPORT TabulonTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tabulon)
install(EXPORT TabulonTargets
  NAMESPACE Tabulon::
  DESTINATION ${TABULON_INSTALL_CMAKEDIR})

# --- headers
set(tabulon_header_excludes)
if(NOT TABULON_PACKAGE_HAS_WIDGETS)
  list(APPEND tabulon_header_excludes PATTERN "qt" EXCLUDE)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tabulon
  FILES_MATCHING PATTERN "*.h" PATTERN "testing" EXCLUDE ${tabulon_header_excludes})

# --- CMake package
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/TabulonConfig.cmake.in
  ${PROJECT_BINARY_DIR}/package/TabulonConfig.cmake
  INSTALL_DESTINATION ${TABULON_INSTALL_CMAKEDIR})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/package/TabulonConfigVersion.cmake
  VERSION ${PROJECT_VERSION}
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/package/TabulonConfig.cmake
  ${PROJECT_BINARY_DIR}/package/TabulonConfigVersion.cmake
  DESTINATION ${TABULON_INSTALL_CMAKEDIR})

# --- pkg-config: static libraries are listed users first, so the linker resolves
# each module from the ones after it.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(TABULON_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
else()
  file(RELATIVE_PATH tabulon_pc_up "/root/${TABULON_INSTALL_PKGCONFIGDIR}" "/root")
  string(REGEX REPLACE "/$" "" tabulon_pc_up "${tabulon_pc_up}")
  set(TABULON_PC_PREFIX "\${pcfiledir}/${tabulon_pc_up}")
endif()
set(tabulon_link_order ${tabulon_modules})
list(REVERSE tabulon_link_order)
list(TRANSFORM tabulon_link_order PREPEND "-l")
list(JOIN tabulon_link_order " " TABULON_PC_LIBS)
configure_file(${PROJECT_SOURCE_DIR}/cmake/tabulon.pc.in
  ${PROJECT_BINARY_DIR}/package/tabulon.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/package/tabulon.pc DESTINATION ${TABULON_INSTALL_PKGCONFIGDIR})
if(TABULON_PACKAGE_HAS_WIDGETS)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/tabulon-widgets.pc.in
    ${PROJECT_BINARY_DIR}/package/tabulon-widgets.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/package/tabulon-widgets.pc
    DESTINATION ${TABULON_INSTALL_PKGCONFIGDIR})
endif()
