# How this project's own code is compiled: the target corvanta_settings, to which all our own targets link
# privately.
option(CORVANTA_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)
option(CORVANTA_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

add_library(corvanta_settings INTERFACE)
target_compile_options(corvanta_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow=local -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
  $<$<BOOL:${CORVANTA_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(corvanta_settings INTERFACE
  $<$<BOOL:${WIN32}>:UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN>)

if(CORVANTA_SANITIZE)
  target_compile_options(corvanta_settings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
  target_link_options(corvanta_settings INTERFACE -fsanitize=address,undefined)
endif()

if(WIN32 AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Builds are reproducible, wherever and whenever; the build id tells which debug information belongs to
  # them. The new prefix is absolute: debuggers resolve relative paths against the build directory.
  target_compile_options(corvanta_settings INTERFACE
    "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=/corvanta"
    "$<$<BOOL:${CMAKE_PREFIX_PATH}>:-ffile-prefix-map=${CMAKE_PREFIX_PATH}=/qt>")
  target_link_options(corvanta_settings INTERFACE -Wl,--no-insert-timestamp -Wl,--build-id)
endif()

# The standard library checks its preconditions; a broken one ends the program.
target_compile_definitions(corvanta_settings INTERFACE _GLIBCXX_ASSERTIONS)

if(WIN32 AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Makes memory errors harder to exploit. Set explicitly, because defaults differ between linkers. MinGW-w64
  # knows two levels of _FORTIFY_SOURCE, which work where the compiler optimises. GCC cannot make the tables
  # of Control Flow Guard, nor any other check of indirect calls on Windows.
  target_compile_options(corvanta_settings INTERFACE -fstack-protector-strong)
  target_compile_definitions(corvanta_settings INTERFACE _FORTIFY_SOURCE=2)
  target_link_libraries(corvanta_settings INTERFACE buffer_guard)
  # Linked with -fstack-protector-strong, programs get GCC's own part of _FORTIFY_SOURCE. Windows 7 is 6.1.
  target_link_options(corvanta_settings INTERFACE
    -fstack-protector-strong
    LINKER:--dynamicbase,--high-entropy-va,--nxcompat,--tsaware
    LINKER:--major-subsystem-version,6,--minor-subsystem-version,1
    LINKER:--major-os-version,6,--minor-os-version,1)
endif()

# All shipped programs.
add_custom_target(programs)

option(CORVANTA_SPLIT_DEBUG
  "Move the debug information of the programs that are shipped into files beside them" OFF)

# corvanta_shipped(TARGET): declares a shipped program.
function(corvanta_shipped target)
  add_dependencies(programs ${target})
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
  if(CORVANTA_SPLIT_DEBUG)
    # Without -p strip and objcopy write the current time into them.
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${CMAKE_OBJCOPY} -p --only-keep-debug $<TARGET_FILE:${target}> $<TARGET_FILE:${target}>.debug
      COMMAND ${CMAKE_STRIP} -p --strip-all $<TARGET_FILE:${target}>
      VERBATIM)
  endif()
endfunction()
