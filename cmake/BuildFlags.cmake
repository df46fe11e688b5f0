# One interface target carries what every target of ours is compiled with.
add_library(fiscarel_flags INTERFACE)
target_include_directories(fiscarel_flags INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(fiscarel_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror
    # Every field of a record has an initializer; naming only those that matter is the style here.
    -Wno-missing-field-initializers)

if(FISCAREL_SANITIZE)
    target_compile_options(fiscarel_flags INTERFACE
        -fsanitize=${FISCAREL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
        # The instrumented code makes g++ see uninitialised values in plain optionals.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(fiscarel_flags INTERFACE -fsanitize=${FISCAREL_SANITIZE})
endif()

if(FISCAREL_COVERAGE)
    target_compile_options(fiscarel_flags INTERFACE --coverage)
    target_link_options(fiscarel_flags INTERFACE --coverage)
endif()
