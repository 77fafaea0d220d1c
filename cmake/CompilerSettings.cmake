# How this project's own code is compiled: the target corvanta_settings, linked privately by every target of ours.
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
