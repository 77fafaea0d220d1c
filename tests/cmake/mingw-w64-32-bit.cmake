# The cross-compiler, set to 32 bits, for which there are no libraries to link to.
include("${CMAKE_CURRENT_LIST_DIR}/../../cmake/mingw-w64-x86_64.cmake")
set(CMAKE_CXX_FLAGS_INIT -m32)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
