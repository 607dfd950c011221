# A package for Debian and its relatives: cpack -G DEB --config BUILD/CPackConfig.cmake
if(NOT CMAKE_SYSTEM_NAME STREQUAL "Linux" OR CMAKE_CROSSCOMPILING OR CMAKE_SIZEOF_VOID_P EQUAL 4)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "The velmarBaseA developers")
set(CPACK_PACKAGE_DESCRIPTION
"velmarBaseA reads the files of the \"diamond\" family (grids, winds, byte images, stations, soundings, maps and
regions), analyses, contours and shades them, draws streamlines and adds up rain. It has a plain C interface.
.
This package holds the library, what is needed to build hosts against it, and velmar, a program that draws charts
and writes contour lines, areas and streamlines as GeoJSON or CSV.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

string(TOLOWER ${PROJECT_NAME} debianName)
set(CPACK_DEBIAN_PACKAGE_NAME ${debianName})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CPACK_PACKAGE_VENDOR})
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# Charts have texts in both scripts.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, fonts-wqy-microhei")

set(documents ${CMAKE_INSTALL_DATAROOTDIR}/doc/${debianName})
install(FILES docs/formats.md docs/hosts.md docs/limitations.md docs/results.md DESTINATION ${documents})
install(DIRECTORY docs/images DESTINATION ${documents} FILES_MATCHING PATTERN "results-*.svg")
include(CPack)
