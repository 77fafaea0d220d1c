# A program with a static Qt imports Qt's plug-ins by a source file for each of them. Qt's packages would compile
# these files for every target that uses Qt, libraries included; this compiles them once.
set(imports "")
set(plugins ${Qt5Gui_PLUGINS} ${Qt5Widgets_PLUGINS})
foreach(plugin IN LISTS plugins)
  get_target_property(sources ${plugin} INTERFACE_SOURCES)
  # Those that extend nothing are for programs that ask for them.
  get_target_property(extends ${plugin} QT_PLUGIN_EXTENDS)
  if(sources AND NOT extends STREQUAL "-")
    list(APPEND imports ${sources})
    set_property(TARGET ${plugin} PROPERTY INTERFACE_SOURCES
      "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:$<TARGET_OBJECTS:qt_plugin_imports>>")
  endif()
endforeach()
if(imports)
  add_library(qt_plugin_imports OBJECT ${imports})
  target_link_libraries(qt_plugin_imports PRIVATE corvanta_settings)
  set_target_properties(qt_plugin_imports PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
  target_include_directories(qt_plugin_imports PRIVATE
    $<TARGET_PROPERTY:Qt5::Core,INTERFACE_INCLUDE_DIRECTORIES>)
  target_compile_definitions(qt_plugin_imports PRIVATE
    $<TARGET_PROPERTY:Qt5::Core,INTERFACE_COMPILE_DEFINITIONS>)
endif()
