# The floors of the program: each folder is a library, linked only to those below it that it may use.
#
# corvanta_floor(NAME SOURCES file... [WINDOWS file...] [QT module...] [USES folder...])
#
# Makes the folder's library corvanta_NAME. WINDOWS are its files that call Win32: in the host tier the tests
# bring fakes instead. Without QT it is linked only to Qt's core library. USES names all the folders whose
# headers it may include.
function(corvanta_floor name)
  cmake_parse_arguments(FLOOR "" "" "SOURCES;WINDOWS;QT;USES" ${ARGN})
  set(library corvanta_${name})
  add_library(${library} STATIC ${FLOOR_SOURCES})
  target_compile_features(${library} PUBLIC cxx_std_17)
  target_compile_definitions(${library} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
  target_include_directories(${library} PUBLIC "${PROJECT_SOURCE_DIR}")
  list(TRANSFORM FLOOR_QT PREPEND Qt5:: OUTPUT_VARIABLE modules)
  target_link_libraries(${library} PUBLIC Qt5::Core ${modules} PRIVATE corvanta_settings)
  if(WIN32)
    target_sources(${library} PRIVATE ${FLOOR_WINDOWS})
  endif()
  foreach(folder IN LISTS FLOOR_USES)
    if(NOT folder STREQUAL "companions/common")
      target_link_libraries(${library} PUBLIC corvanta_${folder})
    elseif(WIN32)
      target_link_libraries(${library} PRIVATE companion_common)
    endif()
  endforeach()
  target_link_libraries(corvanta INTERFACE ${library})
  list(JOIN FLOOR_USES " " uses)
  set_property(GLOBAL APPEND_STRING PROPERTY corvanta_floors "${name}: ${uses}\n")
endfunction()
