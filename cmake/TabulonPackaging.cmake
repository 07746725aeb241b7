# Installing Tabulon for hosts that link it:
#   include/tabulon/<folder>/<file>.h     the public headers listed below, so
#                                         "control/generic_sp_control.h" and
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
# - Only the public headers are installed: each includes nothing but the others (the
#   control and the widget keep their internals behind forward declarations and a
#   private implementation). The packaging test compiles them all on their own and
#   builds the example hosts with nothing else. Every module library is installed,
#   being static: the public ones link the rest.
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

# --- headers: the public API, relative to src/
set(TABULON_PUBLIC_HEADERS
  control/generic_sp_control.h
  control/settings_records.h
  platform/clipboard.h
  platform/property_bag.h
  platform/xml/xml_document.h
  support/failure.h
  support/message_sink.h
  view/block_report.h
  view/find_hit.h
  view/host_events.h)
set(TABULON_PUBLIC_WIDGET_HEADERS
  qt/message_handler.h
  qt/pages/property_page_dialog.h
  qt/qsettings_property_bag.h
  qt/settings_metatypes.h
  qt/spreadsheet_widget.h)
set(tabulon_installed_headers ${TABULON_PUBLIC_HEADERS})
if(TABULON_PACKAGE_HAS_WIDGETS)
  list(APPEND tabulon_installed_headers ${TABULON_PUBLIC_WIDGET_HEADERS})
endif()
foreach(header IN LISTS tabulon_installed_headers)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/src/${header}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tabulon/${folder})
endforeach()

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
