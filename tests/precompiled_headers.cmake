# The precompiled headers of the tests: one for those that use Qt Widgets, one for those that do not,
# since the macros of Qt's modules are among the compile options.

set(core_headers
  <QDir> <QFile> <QFileInfo> <QJsonArray> <QJsonDocument> <QJsonObject> <QProcess> <QSet>
  <QSignalSpy> <QTemporaryDir> <QTest> <QTimer> <algorithm> <array> <functional> <memory> <string>
  <vector>)
scribon_precompile(area_main ${core_headers})

add_library(widgets_test_headers OBJECT runner/widgets_headers.cpp)
target_link_libraries(widgets_test_headers PRIVATE
  Qt5::Widgets Qt5::Test scribon_options scribon_qt_options scribon_warnings)
scribon_precompile(widgets_test_headers ${core_headers}
  <QAbstractItemView> <QApplication> <QComboBox> <QHeaderView> <QLabel> <QLineEdit> <QMenu>
  <QMessageBox> <QPushButton> <QRegularExpression> <QSpinBox> <QStatusBar> <QTreeView> <QUndoStack>
  <QtTest>)

# Appends all libraries that the target is linked with to out_var.
function(scribon_collect_libraries target out_var)
  foreach(property IN ITEMS LINK_LIBRARIES INTERFACE_LINK_LIBRARIES)
    get_target_property(direct ${target} ${property})
    foreach(library IN LISTS direct)
      if(NOT library IN_LIST ${out_var})
        list(APPEND ${out_var} ${library})
        if(TARGET ${library})
          scribon_collect_libraries(${library} ${out_var})
        endif()
      endif()
    endforeach()
  endforeach()
  set(${out_var} "${${out_var}}" PARENT_SCOPE)
endfunction()

# Gives each program and static library of the folder that uses Qt Test the header that fits it.
function(scribon_precompile_tests directory)
  get_property(targets DIRECTORY "${directory}" PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    set(libraries "")
    if(type MATCHES "^(EXECUTABLE|STATIC_LIBRARY)$")
      scribon_collect_libraries(${target} libraries)
    endif()
    if("Qt5::Widgets" IN_LIST libraries AND "Qt5::Test" IN_LIST libraries)
      scribon_reuse_precompiled(widgets_test_headers ${target})
    elseif("Qt5::Test" IN_LIST libraries)
      scribon_reuse_precompiled(area_main ${target})
    endif()
  endforeach()
endfunction()

get_property(folders DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" PROPERTY SUBDIRECTORIES)
foreach(folder IN LISTS folders)
  scribon_precompile_tests("${folder}")
endforeach()
