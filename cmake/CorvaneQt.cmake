if(APPLE)
  set(CORVANE_QT_MINIMUM 6.8) # the first with a native MenuBar in Quick Controls
else()
  set(CORVANE_QT_MINIMUM 6.4)
endif()
find_package(Qt6 ${CORVANE_QT_MINIMUM} REQUIRED COMPONENTS Core Gui Qml Quick QuickControls2 Svg Network)
qt_standard_project_setup()
set(CMAKE_AUTOUIC OFF) # there are no forms
if(COMMAND qt_policy)
  qt_policy(SET QTP0001 NEW)
endif()

set(QT_QML_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml)
set(CORVANE_QML_PREFIX /qt/qml)

# Compiles the QML compiler's output for a target, and the registration of its types, in batches of a dozen: each of
# these files includes all of Qt's QML headers and has little code of its own. Hand-written sources are not batched, so
# that an edit recompiles only one.
function(corvane_batch_qml target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources EXCLUDE REGEX "_(qml|qmltyperegistrations)\\.cpp$")
  set_source_files_properties(${sources} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
endfunction()

# Adds a QML module with its C++ types as a static library.
# corvane_qml_module(NAME URI Corvane.X SOURCES a.cpp a.h QML_FILES A.qml IMPORTS Corvane.Shell DEPENDENCIES QtQuick
#   LIBRARIES x y)
function(corvane_qml_module target)
  cmake_parse_arguments(arg "" "URI" "SOURCES;QML_FILES;IMPORTS;DEPENDENCIES;LIBRARIES" ${ARGN})
  qt_add_library(${target} STATIC)
  qt_add_qml_module(${target}
    URI ${arg_URI}
    VERSION 1.0
    RESOURCE_PREFIX ${CORVANE_QML_PREFIX}
    IMPORTS ${arg_IMPORTS}
    DEPENDENCIES ${arg_DEPENDENCIES}
    SOURCES ${arg_SOURCES}
    QML_FILES ${arg_QML_FILES})
  corvane_batch_qml(${target})
  # The generated type registration includes the headers by bare name.
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${target} PUBLIC ${arg_LIBRARIES} Qt6::Quick)
  list(FILTER arg_SOURCES INCLUDE REGEX "\\.(cpp|mm)$")
  corvane_strict_sources(${arg_SOURCES})
endfunction()
