# Helpers shared by every CMakeLists.txt of the project.

add_library(orvanta_options INTERFACE)
target_compile_options(orvanta_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                       -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
                       $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>) # GCC 12 sees overlaps in std::string's operator+ that are none
if(ORVANTA_TESTS)
    target_compile_options(orvanta_options INTERFACE -Werror)
endif()
target_compile_definitions(orvanta_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_BYTEARRAY
                           QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(ORVANTA_SANITIZE)
    target_compile_options(orvanta_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                           -fno-omit-frame-pointer -g1 -O1)
    target_link_options(orvanta_options INTERFACE -fsanitize=address,undefined)
endif()
if(ORVANTA_FUZZ)
    target_compile_options(orvanta_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(ORVANTA_TIDY)
    # One translation unit a library: most of clang-tidy's time goes into Qt's headers, which it then reads once.
    set(CMAKE_UNITY_BUILD ON)
    set(CMAKE_UNITY_BUILD_BATCH_SIZE 0)
    set(CMAKE_CXX_CLANG_TIDY clang-tidy --quiet --warnings-as-errors=* --extra-arg=-Wno-unknown-warning-option)
endif()

# orvanta_library(NAME sources...): one library per folder of src/. Its headers are reached as
# "NAME/header.h" through an include root that holds this folder only, so that a library sees
# exactly the folders it links to.
function(orvanta_library name)
    set(root ${CMAKE_BINARY_DIR}/include/${name})
    file(MAKE_DIRECTORY ${root})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${root})
    target_link_libraries(${name} PUBLIC orvanta_options)
endfunction()

add_custom_target(unit_tests)

# orvanta_test(NAME sources...): a GoogleTest program that runs offscreen, registered with ctest.
function(orvanta_test name)
    add_executable(${name} ${ARGN})
    target_compile_options(${name} PRIVATE -Wno-dangling-else) # GoogleTest's macros are an if without braces
    target_link_libraries(${name} PRIVATE orvanta_options GTest::gtest)
    add_test(NAME ${name} COMMAND ${name})
    add_dependencies(unit_tests ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
