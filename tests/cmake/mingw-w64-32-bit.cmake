# The cross-compiler told to compile for 32 bits. There are no libraries to link with.
include("${CMAKE_CURRENT_LIST_DIR}/../../cmake/mingw-w64-x86_64.cmake")
set(CMAKE_CXX_FLAGS_INIT -m32)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
