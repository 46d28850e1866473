# What script/package packs: Debian packages, or one archive.
set(CPACK_GENERATOR TGZ)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME audioanalyzer)
set(CPACK_PACKAGE_VENDOR "The AudioAnalyzer developers")
# Who answers for the packages. The default names a domain that does not exist, and cannot.
set(AUDIOANALYZER_CONTACT "The AudioAnalyzer developers <packages@audioanalyzer.invalid>"
  CACHE STRING "Maintainer in the packages: Name <address>")
set(CPACK_PACKAGE_CONTACT ${AUDIOANALYZER_CONTACT})
set(CPACK_PACKAGE_FILE_NAME audioanalyzer-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
# Each component has a summary of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_RESOURCE_FILE_README ${PROJECT_SOURCE_DIR}/README.md)
set(CPACK_COMPONENTS_ALL library development tools python)
if(TARGET audio-analyzer-link)
  list(APPEND CPACK_COMPONENTS_ALL link)
endif()
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# ---- Debian ----
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Packages of shared libraries come from the library that is packed along, and from dpkg for all others.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src/AudioAnalyzer)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY =)
endif()
# Adds what Debian wants and nobody else: copyright, changelog, compressed manual pages.
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/debian/finish.cmake)
set(CPACK_AUDIOANALYZER_SOURCE_DIR ${PROJECT_SOURCE_DIR})

set(library_package libaudioanalyzer${PROJECT_VERSION_MAJOR})
set(this_library "${library_package} (= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/debian/triggers)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION
"real-time beat detection and tempo measurement - library
AudioAnalyzer finds pulses, beats and the tempo of live audio, and announces
a beat before it sounds. It gives the same results on every machine.
.
This package holds the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libaudioanalyzer-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${this_library}, qtbase5-dev (>= 5.15), qtmultimedia5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
"real-time beat detection and tempo measurement - development files
AudioAnalyzer finds pulses, beats and the tempo of live audio, and announces
a beat before it sounds. It gives the same results on every machine.
.
This package holds the headers for C++ with Qt and for plain C, the files for
CMake and pkg-config, documents and examples.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME audioanalyzer-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${this_library}, libqt5multimedia5-plugins")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS "gnuplot-nox, sonic-visualiser")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION
"find the beats and the tempo of music, in files and live
audio-analyzer prints the beats of audio files and of live inputs in the
formats of label editors and of music research, and writes click tracks and
plots. A Vamp plugin shows the same beats in hosts such as Sonic Visualiser.")
if(TARGET beat-monitor)
  string(APPEND CPACK_DEBIAN_TOOLS_DESCRIPTION
"
beat-monitor shows the beat, the tempo and the spectrum of live music in a
window.")
endif()

set(CPACK_DEBIAN_LINK_PACKAGE_NAME audioanalyzer-link)
set(CPACK_DEBIAN_LINK_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_LINK_PACKAGE_DEPENDS "${this_library}")
set(CPACK_DEBIAN_LINK_PACKAGE_RECOMMENDS audioanalyzer-tools)
set(CPACK_DEBIAN_LINK_DESCRIPTION
"bring the beat of live music into an Ableton Link session
audio-analyzer-link reads the beats that audio-analyzer announces and lets the
Link session of the local network follow them, politely: it changes the tempo
when beats are sure, and nudges rather than jumps.
.
It contains Ableton Link, and is under the GNU General Public License.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-audioanalyzer)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
  "${this_library}, python3 (>= 3.9)")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS python3-numpy)
# Compiled files come and go with the package.
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
  ${CMAKE_CURRENT_SOURCE_DIR}/debian/python/postinst
  ${CMAKE_CURRENT_SOURCE_DIR}/debian/python/prerm)
set(CPACK_DEBIAN_PYTHON_DESCRIPTION
"beats and tempo of audio as it is pushed - Python module
AudioAnalyzer finds pulses, beats and the tempo of live audio, and announces
a beat before it sounds. It gives the same results on every machine.
.
This package holds the Python module audioanalyzer, which takes samples from
any object with the buffer protocol.")

include(CPack)
