# What every folder's CMakeLists.txt uses.

option(VELMARIN_WERROR "Treat warnings as errors" ON)
option(VELMARIN_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(VELMARIN_SANITIZE_THREADS "Build with ThreadSanitizer" OFF)

add_library(velmarin_options INTERFACE)
target_compile_features(velmarin_options INTERFACE cxx_std_20)
target_compile_options(velmarin_options INTERFACE -Wall -Wextra -Wpedantic $<$<BOOL:${VELMARIN_WERROR}>:-Werror>)
# g++ 12 sees overlaps and copies of absurd lengths in joining literals and strings when it optimises; there are none.
target_compile_options(velmarin_options INTERFACE "$<$<CONFIG:Release>:-Wno-restrict;-Wno-stringop-overflow;-Wno-array-bounds>")
if(VELMARIN_SANITIZE)
  target_compile_options(velmarin_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer)
  target_link_options(velmarin_options INTERFACE -fsanitize=address,undefined)
endif()
if(VELMARIN_SANITIZE_THREADS)
  target_compile_options(velmarin_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(velmarin_options INTERFACE -fsanitize=thread)
endif()

option(VELMARIN_PCH "Compile the headers of the libraries once a target: most of a build's time goes into reading them" OFF)

# Every source still includes what it uses: the presets "dev" and "debug" build without.
function(velmarin_precompile name)
  if(NOT VELMARIN_PCH)
    return()
  endif()
  set(headers <algorithm> <array> <chrono> <filesystem> <functional> <map> <memory> <optional> <set> <string>
              <string_view> <unordered_map> <utility> <vector>)
  if("Qt6::Widgets" IN_LIST ARGN)
    list(APPEND headers <QtWidgets>)
  endif()
  if("GTest::gtest" IN_LIST ARGN)
    list(APPEND headers <gtest/gtest.h>)
  endif()
  target_precompile_headers(${name} PRIVATE ${headers})
endfunction()

# velmarin_library(NAME SOURCES ... LINKS ...): the library of the present folder.
#
# A folder's headers are included as "folder/File.h". They are reached through a directory of links that holds this one
# folder alone, so that a folder that is not linked cannot be included: the order of the folders is kept by the compiler.
function(velmarin_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  set(root ${CMAKE_BINARY_DIR}/include/${folder})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${folder} SYMBOLIC)
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${root})
  target_link_libraries(${name} PUBLIC velmarin_options ${ARG_LINKS})
  if("Qt6::Widgets" IN_LIST ARG_LINKS)
    # No header is generated but by moc, so moc need not wait for the libraries below.
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOGEN_ORIGIN_DEPENDS OFF)
  endif()
  velmarin_precompile(${name} ${ARG_LINKS})
endfunction()

# velmarin_test(NAME SOURCES ... LINKS ... [WIDGETS]): a GoogleTest program. WIDGETS gives it a QApplication on the
# offscreen platform; without it no Qt is linked.
function(velmarin_test name)
  cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE velmarin_options velmarin_test_support ${ARG_LINKS})
  if(VELMARIN_SANITIZE OR VELMARIN_SANITIZE_THREADS)
    # With the sanitizers g++ 12 takes parts of std::regex for uninitialised, and strings of a computed length for ones
    # of any length; they are not.
    # Tests run once after they are compiled: without optimisation both together take less.
    target_compile_options(${name} PRIVATE -O0 -Wno-maybe-uninitialized -Wno-stringop-overflow -Wno-stringop-overread
                                           -Wno-array-bounds -Wno-restrict)
  endif()
  if(ARG_WIDGETS)
    target_link_libraries(${name} PRIVATE velmarin_widget_test_main)
    velmarin_precompile(${name} Qt6::Widgets GTest::gtest)
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest GTest::gtest_main)
    velmarin_precompile(${name} GTest::gtest)
  endif()
  add_dependencies(${name} velmarin-decode)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
