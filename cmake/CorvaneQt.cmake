if(APPLE)
  set(CORVANE_QT_MINIMUM 6.8) # the first with a native MenuBar in Quick Controls
else()
  set(CORVANE_QT_MINIMUM 6.4)
endif()
find_package(Qt6 ${CORVANE_QT_MINIMUM} REQUIRED COMPONENTS Core Gui Qml Quick QuickControls2 Svg Network Concurrent)
qt_standard_project_setup()
if(COMMAND qt_policy)
  qt_policy(SET QTP0001 NEW)
endif()

set(QT_QML_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml)
set(CORVANE_QML_PREFIX /qt/qml)
