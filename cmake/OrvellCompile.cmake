# One interface target that carries the language level, warnings and arithmetic of all our code.

add_library(orvell_compile INTERFACE)
target_compile_features(orvell_compile INTERFACE cxx_std_20)
target_include_directories(orvell_compile INTERFACE
    ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/include)
target_compile_options(orvell_compile INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Wimplicit-fallthrough -Wcast-align -Wformat=2 -Werror
    # GCC 12 sees overlapping copies in every assignment of a literal to a std::string.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

# SSE2 arithmetic gives the same bits whatever the optimisation level and whatever precision the
# host has set for the x87 unit. The host's threads may enter with a 4-byte aligned stack.
set(ORVELL_ARITHMETIC -msse2 -mfpmath=sse -ffp-contract=off -mstackrealign)
add_compile_options(${ORVELL_ARITHMETIC})

if(ORVELL_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer
                        # Setters of short numbers are called with the whole word on purpose.
                        $<$<CXX_COMPILER_ID:Clang>:-fno-sanitize=function>)
    add_link_options(-fsanitize=address,undefined)
endif()

if(ORVELL_COVERAGE)
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
    add_link_options(-fprofile-instr-generate)
endif()

if(ORVELL_FUZZ)
    # Of all code, for the engine to see which branches an input takes.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(WIN32)
    target_compile_definitions(orvell_compile INTERFACE
        UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601)
    # Nothing but system DLLs is needed beside our files: the run-time is linked statically.
    add_link_options(-static -static-libgcc -static-libstdc++)
    # Overrun buffers, wrong indices and variables without a value have a defined end. What these
    # flags call is in src/platform/win32/stack_guard.cpp; copies are checked where code is optimised.
    add_compile_options(-fstack-protector-strong -ftrivial-auto-var-init=zero
                        $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
                        $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
    add_link_options(-fstack-protector-strong)  # links the checked copies, statically
    add_compile_definitions($<$<COMPILE_LANGUAGE:CXX>:_GLIBCXX_ASSERTIONS>)
    # ASLR and DEP for every image that we build, and the same image from the same sources. Not
    # --no-seh: host_call.cpp has a handler, which the system would then refuse to call.
    add_link_options(-Wl,--dynamicbase -Wl,--nxcompat -Wl,--enable-reloc-section
                     -Wl,--no-insert-timestamp)
endif()
