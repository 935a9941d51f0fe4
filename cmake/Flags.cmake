# Compiler and linker flags that all of our code shares.
add_library(velmar_flags INTERFACE)
target_include_directories(velmar_flags INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_definitions(velmar_flags INTERFACE QT_NO_CAST_FROM_BYTEARRAY QT_DEPRECATED_WARNINGS_SINCE=0x050000)
# SSE2 arithmetic: the truncations of the layout must not depend on the optimiser.
target_compile_options(velmar_flags INTERFACE
    -msse2 -mfpmath=sse -Wall -Wextra -Werror -Wno-deprecated-declarations -fno-strict-aliasing
    -fstack-protector-strong)
target_link_options(velmar_flags INTERFACE -Wl,-z,relro -Wl,-z,now)
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_compile_definitions(velmar_flags INTERFACE _FORTIFY_SOURCE=2)
    set(CMAKE_CXX_FLAGS_RELEASE "-O2 -g0")
else()
    set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1")
endif()
if(VELMAR_SANITIZE)
    target_compile_options(velmar_flags INTERFACE -fsanitize=address,undefined -fno-sanitize=vptr
        -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(velmar_flags INTERFACE -fsanitize=address,undefined)
    target_compile_definitions(velmar_flags INTERFACE VELMAR_SANITIZED=1)
endif()
if(VELMAR_COVERAGE)
    target_compile_options(velmar_flags INTERFACE --coverage)
    target_link_options(velmar_flags INTERFACE --coverage)
endif()
