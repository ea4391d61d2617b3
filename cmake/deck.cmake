# Functions that every folder's CMakeLists.txt uses: a library per folder, a test program per folder.

set(CMAKE_EXPORT_COMPILE_COMMANDS ON) # for clang-tidy

# Repeated builds reuse what ccache has seen; without it nothing changes.
find_program(WRENDECK_CCACHE ccache)
mark_as_advanced(WRENDECK_CCACHE)
foreach(language C CXX)
  if(WRENDECK_CCACHE AND NOT CMAKE_${language}_COMPILER_LAUNCHER)
    set(CMAKE_${language}_COMPILER_LAUNCHER ${WRENDECK_CCACHE})
  endif()
endforeach()

add_library(deck_options INTERFACE)
target_include_directories(deck_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(
  deck_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wshadow
            -Wnon-virtual-dtor
            -Werror
            # GCC 12 sees overlapping copies in std::string's operator+ that cannot happen.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_definitions(deck_options INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(WRENDECK_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_options(${sanitizers})
  add_link_options(${sanitizers})
endif()

if(WRENDECK_FUZZ)
  # The fuzzer follows every branch of what it is linked to.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(WIN32)
  # Windows 7 is the oldest system the program supports.
  target_compile_definitions(deck_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
                                                    _WIN32_WINNT=0x0601)
  add_compile_options(-fstack-protector-strong)
  # The option at link time brings in the library that the checks call.
  add_link_options(-static -fstack-protector-strong -Wl,--dynamicbase,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(-Wl,--high-entropy-va)
  endif()
endif()

# deck_library(<folder> SOURCES <files> [WIN32_SOURCES <files>] [USES <folders>])
# The portable library deck_<folder> and, when building for Windows, deck_<folder>_win32 with the
# folder's windows and adapters. USES names the folders that the include rules allow.
function(deck_library folder)
  cmake_parse_arguments(arg "" "" "SOURCES;WIN32_SOURCES;USES" ${ARGN})
  set(kind STATIC)
  set(scope PUBLIC)
  if(NOT arg_SOURCES)
    set(kind INTERFACE)
    set(scope INTERFACE)
  endif()
  add_library(deck_${folder} ${kind} ${arg_SOURCES})
  target_link_libraries(deck_${folder} ${scope} deck_options)
  foreach(used IN LISTS arg_USES)
    target_link_libraries(deck_${folder} ${scope} deck_${used})
  endforeach()
  if(WIN32)
    set(kind STATIC)
    set(scope PUBLIC)
    if(NOT arg_WIN32_SOURCES)
      set(kind INTERFACE)
      set(scope INTERFACE)
    endif()
    add_library(deck_${folder}_win32 ${kind} ${arg_WIN32_SOURCES})
    target_link_libraries(deck_${folder}_win32 ${scope} deck_${folder})
    foreach(used IN LISTS arg_USES)
      target_link_libraries(deck_${folder}_win32 ${scope} deck_${used}_win32)
    endforeach()
  endif()
endfunction()

# deck_name_sources_from_root(<target>)
# For a library whose assertions put the names of its sources into the program: the names are those
# inside the tree, wherever the tree and the build's folder stand. ccache names sources from the
# latter.
function(deck_name_sources_from_root target)
  file(RELATIVE_PATH up ${CMAKE_BINARY_DIR} ${PROJECT_SOURCE_DIR})
  string(REGEX REPLACE "([^/])$" "\\1/" up "${up}")
  target_compile_options(${target} PRIVATE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
                                           -ffile-prefix-map=${up}=)
endfunction()

# deck_test(<name> SOURCES <files> LIBRARIES <targets> [LABELS <labels>])
# One GoogleTest program and one ctest entry: under Wine a cold start costs more than most suites.
# The results of every case are left in test-results/<name>.xml. Under Windows only suites labelled
# "core" run side by side: the others share the display, the focus and the clipboard.
function(deck_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES;LABELS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} deck_options gtest gtest_main)
  # Compiling the assertions is most of a build. They need no speed under Windows, and no
  # checks of every pointer of their own; what they test keeps its options.
  if(WRENDECK_SANITIZE)
    target_compile_options(${name} PRIVATE -fno-sanitize=vptr,null,alignment)
  elseif(WIN32)
    target_compile_options(${name} PRIVATE -O0)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set(results ${CMAKE_BINARY_DIR}/test-results/${name}.xml)
  if(CMAKE_CROSSCOMPILING AND WIN32)
    set(results Z:${results}) # Wine's drive for the whole file system
  endif()
  set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT 300
                                          ENVIRONMENT GTEST_OUTPUT=xml:${results})
  if(WIN32 AND NOT "core" IN_LIST arg_LABELS)
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK display)
  endif()
endfunction()
