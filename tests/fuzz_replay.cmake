# The fuzz targets without libFuzzer, replaying fuzz/seeds/ and fuzz/regression/
# under ctest (and under the sanitizers in a ZEMSUB_SANITIZE build).
# Included from tests/CMakeLists.txt, where zemsub_test_support is defined.
set(ZEMSUB_FUZZ_DIR ${PROJECT_SOURCE_DIR}/fuzz)
file(GLOB fuzz_replay_targets CONFIGURE_DEPENDS ${ZEMSUB_FUZZ_DIR}/targets/*.cpp)
include(${PROJECT_SOURCE_DIR}/tools/fix/FixSources.cmake)
add_executable(fuzz_replay_tests
  ${ZEMSUB_FUZZ_DIR}/replay/FuzzReplayTest.cpp
  ${ZEMSUB_FUZZ_DIR}/FuzzSupport.cpp
  ${fuzz_replay_targets}
  ${ZEMSUBFIX_SOURCES})
target_compile_options(fuzz_replay_tests PRIVATE -Wall -Wextra)
target_include_directories(fuzz_replay_tests PRIVATE ${ZEMSUB_FUZZ_DIR} ${ZEMSUB_FUZZ_DIR}/targets
  ${ZEMSUBFIX_INCLUDE_DIRS})
# The lint reading, fix and picture targets need the tool's reading, pictures and playback, also when the
# tools are not built.
if(NOT TARGET zemsub_reading)
  include(${PROJECT_SOURCE_DIR}/cmake/ZemsubFFmpeg.cmake)
  add_subdirectory(${PROJECT_SOURCE_DIR}/tools/reading ${CMAKE_BINARY_DIR}/fuzz-replay-reading)
  add_subdirectory(${PROJECT_SOURCE_DIR}/tools/pictures ${CMAKE_BINARY_DIR}/fuzz-replay-pictures)
  add_subdirectory(${PROJECT_SOURCE_DIR}/tools/playback ${CMAKE_BINARY_DIR}/fuzz-replay-playback)
endif()
target_link_libraries(fuzz_replay_tests PRIVATE zemsub_test_support zemsub_reading zemsub_pictures zemsub_playback)
target_compile_definitions(fuzz_replay_tests PRIVATE ZEMSUB_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
gtest_discover_tests(fuzz_replay_tests
  TEST_PREFIX "fuzz."
  PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 300
  DISCOVERY_TIMEOUT 60)
