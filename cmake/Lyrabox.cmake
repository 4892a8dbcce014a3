# The one place that knows how a folder of the source tree becomes a target.

add_library(lyrabox_options INTERFACE)
target_include_directories(lyrabox_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(lyrabox_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
  -Woverloaded-virtual)
target_compile_definitions(lyrabox_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING
  LYRABOX_VERSION="${PROJECT_VERSION}")
if(LYRABOX_WERROR)
  target_compile_options(lyrabox_options INTERFACE -Werror)
endif()
if(LYRABOX_SANITIZER STREQUAL "address")
  set(sanitizer_flags -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
elseif(LYRABOX_SANITIZER STREQUAL "thread")
  set(sanitizer_flags -fsanitize=thread -fno-omit-frame-pointer)
elseif(LYRABOX_SANITIZER STREQUAL "fuzzer")
  set(sanitizer_flags -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer)
elseif(LYRABOX_SANITIZER)
  message(FATAL_ERROR "LYRABOX_SANITIZER is '${LYRABOX_SANITIZER}'; it may be empty, address, thread or fuzzer")
endif()
if(sanitizer_flags)
  target_compile_options(lyrabox_options INTERFACE ${sanitizer_flags})
  target_link_options(lyrabox_options INTERFACE ${sanitizer_flags})
endif()
if(LYRABOX_COVERAGE)
  target_compile_options(lyrabox_options INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(lyrabox_options INTERFACE --coverage)
endif()

# Headers that most sources include, compiled once for the sanitizers' builds. Other builds don't use them, so that a
# missing include is found.
if(LYRABOX_SANITIZER)
  add_library(lb_source_headers STATIC ${CMAKE_CURRENT_LIST_DIR}/SourceHeaders.cpp)
  target_link_libraries(lb_source_headers PRIVATE Qt6::Core lyrabox_options)
  target_precompile_headers(lb_source_headers PRIVATE
    <algorithm> <array> <chrono> <cmath> <functional> <memory> <optional> <string> <thread> <vector>
    <QDir> <QFile> <QFileInfo> <QStringList> <QTimer> <QUrl>)
endif()

# lyrabox_add_library(engine DEPENDS platform_audio settings LIBRARIES Qt6::Core PRIVATE_LIBRARIES ...)
# makes lb_engine of every source in the calling folder. DEPENDS are folders of this tree, named as their targets. A folder
# that may not be included is not named, so code that uses it does not link.
function(lyrabox_add_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;LIBRARIES;PRIVATE_LIBRARIES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  file(GLOB headers CONFIGURE_DEPENDS *.h)
  list(TRANSFORM ARG_DEPENDS PREPEND lb_)
  if(NOT sources)
    add_library(lb_${name} INTERFACE)
    target_link_libraries(lb_${name} INTERFACE ${ARG_DEPENDS} ${ARG_LIBRARIES})
    target_include_directories(lb_${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
    return()
  endif()
  add_library(lb_${name} STATIC ${sources} ${headers} ${ARG_SOURCES})
  target_link_libraries(lb_${name} PUBLIC ${ARG_DEPENDS} ${ARG_LIBRARIES}
    PRIVATE lyrabox_options ${ARG_PRIVATE_LIBRARIES})
  target_include_directories(lb_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  if(LYRABOX_SANITIZER AND (ARG_DEPENDS OR ARG_LIBRARIES)) # the headers need Qt, which comes with one of these
    target_precompile_headers(lb_${name} REUSE_FROM lb_source_headers)
  endif()
endfunction()

# lyrabox_add_module(decoding DecodingEntry.cpp lb_platform_decoding) makes lib/lyrabox/lyrabox-decoding.so. The program
# opens it when it first needs it. It contains the code of the layers below that it uses, and links only its own libraries.
function(lyrabox_add_module name entry library)
  add_library(lyrabox_${name} MODULE ${entry})
  target_link_libraries(lyrabox_${name} PRIVATE ${library} lyrabox_options)
  target_link_options(lyrabox_${name} PRIVATE -Wl,--as-needed -Wl,--exclude-libs,ALL -Wl,-z,relro -Wl,-z,now)
  set_target_properties(lyrabox_${name} PROPERTIES PREFIX "" OUTPUT_NAME lyrabox-${name}
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib/lyrabox)
  install(TARGETS lyrabox_${name} LIBRARY DESTINATION lib/lyrabox)
  # The parts of a module become a shared library. Not every version of Qt asks for position-independent code by itself.
  get_target_property(parts ${library} LINK_LIBRARIES)
  list(FILTER parts INCLUDE REGEX "^lb_")
  set_target_properties(${library} ${parts} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()

# lyrabox_add_test(engine DEPENDS engine test_support [LABELS sound] [SERIAL] [WAITS] [LANE name tests] [OPTIMISED]
#   [TIMEOUT seconds])
# makes test_engine of every Test*.cpp in the calling folder and registers every test in it with CTest. A test runs
# on the offscreen platform with settings folders of its own (tests/support/TestMain.cpp).
# OPTIMISED: for tests that compute much themselves. The others are compiled without optimisation, which is faster.
# WAITS: for tests that mostly wait for sound and windows. They start first and run one at a time. Other tests run at the same
# time with a lower priority (nice).
# LANE: the tests of this filter run one at a time, too, but at the same time as those that only wait.
# SERIAL: for tests that measure a device by the millisecond. They run alone; under the sanitizers they are like WAITS.
function(lyrabox_add_test name)
  cmake_parse_arguments(ARG "SERIAL;WAITS;OPTIMISED" "TIMEOUT" "SOURCES;DEPENDS;LIBRARIES;LABELS;LANE" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  file(GLOB headers CONFIGURE_DEPENDS *.h)
  if(NOT sources)
    return()
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  add_executable(test_${name} ${sources} ${headers} ${ARG_SOURCES})
  list(TRANSFORM ARG_DEPENDS PREPEND lb_)
  target_link_libraries(test_${name} PRIVATE ${ARG_DEPENDS} ${ARG_LIBRARIES} lb_test_main GTest::gtest
    GTest::gmock lyrabox_options)
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(test_${name} PRIVATE
    LYRABOX_SOURCE_DIR="${PROJECT_SOURCE_DIR}" LYRABOX_BINARY_DIR="${PROJECT_BINARY_DIR}")
  add_dependencies(test_${name} lyrabox_decoding lyrabox_encoding lyrabox_midi lyrabox_output)
  if(LYRABOX_SANITIZER OR LYRABOX_COVERAGE OR CMAKE_BUILD_TYPE STREQUAL "Debug")
    target_compile_definitions(test_${name} PRIVATE LYRABOX_IS_SLOW) # the tested code is several times slower
  endif()
  if(NOT ARG_OPTIMISED)
    target_compile_options(test_${name} PRIVATE -O0)
    target_precompile_headers(test_${name} REUSE_FROM lb_test_headers)
  endif()
  set(properties TIMEOUT ${ARG_TIMEOUT})
  if(ARG_LABELS)
    list(APPEND properties LABELS ${ARG_LABELS})
  endif()
  if(ARG_SERIAL AND NOT LYRABOX_SANITIZER)
    list(APPEND properties RUN_SERIAL TRUE)
  elseif(ARG_WAITS OR ARG_SERIAL)
    list(APPEND properties RESOURCE_LOCK sound_and_windows COST 1000)
  else()
    set_target_properties(test_${name} PROPERTIES CROSSCOMPILING_EMULATOR nice)
  endif()
  set(discovery TEST_PREFIX ${name}. DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60)
  if(ARG_LANE)
    list(POP_FRONT ARG_LANE lane tests)
    list(TRANSFORM properties REPLACE sound_and_windows ${lane} OUTPUT_VARIABLE lane_properties)
    gtest_discover_tests(test_${name} ${discovery} TEST_FILTER ${tests} PROPERTIES ${lane_properties})
    list(APPEND discovery TEST_FILTER -${tests})
  endif()
  gtest_discover_tests(test_${name} ${discovery} PROPERTIES ${properties})
endfunction()
