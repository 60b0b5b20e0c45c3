# The tests of single classes, and what they share.
find_package(GTest REQUIRED)
include(GoogleTest)

# Tests need to compile fast, not to run fast. The checks of library calls need some optimisation.
if(NOT BROOMTIDE_SANITIZE)
  add_compile_options(-O1)
endif()

add_library(support STATIC
  support/FaultyFileManager.cpp
  support/OwnProcess.cpp
  support/ScanRecorder.cpp
  support/TemporaryTree.cpp
  support/TrashReader.cpp
  support/TreeSnapshot.cpp)
target_include_directories(support PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(support PUBLIC engine GTest::gmock GTest::gtest)

add_executable(unit-tests
  app/AppModelTest.cpp
  cleanup/DefaultTrashManagerTest.cpp
  cleanup/JSONHistoryStoreTest.cpp
  cli/ReportsTest.cpp
  context/GitInspectorTest.cpp
  context/HostileRepositoryTest.cpp
  context/ProjectDetectorTest.cpp
  core/TextsTest.cpp
  platform/ChildProcessTest.cpp
  platform/ConfinementTest.cpp
  platform/DirectoryEnumeratorTest.cpp
  platform/FileManagerTest.cpp
  trash/TrashTest.cpp
  rules/ScanRulesTest.cpp
  scanner/CacheScanTest.cpp
  scanner/CancellationTest.cpp
  scanner/CautionTest.cpp
  scanner/MeasurementTest.cpp
  scanner/TreeScanTest.cpp)
by_folder(unit-tests)
target_precompile_headers(unit-tests PRIVATE <gmock/gmock.h> <gtest/gtest.h> <string> <vector>)
target_link_libraries(unit-tests PRIVATE support cli GTest::gtest_main ICU::i18n ICU::uc)
gtest_discover_tests(unit-tests PROPERTIES TIMEOUT 300)

# What survives faults, races and hostile folders; slower than the tests of single classes.
add_executable(reliability-tests
  reliability/FaultsTest.cpp
  reliability/RaceTest.cpp)
target_precompile_headers(reliability-tests REUSE_FROM unit-tests)
target_link_libraries(reliability-tests PRIVATE support GTest::gtest_main)
gtest_discover_tests(reliability-tests TEST_PREFIX reliability. PROPERTIES TIMEOUT 600 COST 30)

# The window, without a screen to show it on.
add_executable(ui-tests
  ui/AllScreensTest.cpp
  ui/Person.h
  ui/ResultsTest.cpp
  ui/ScreensTest.cpp
  ui/ShellTest.cpp
  ui/SpokenLanguage.cpp
  ui/TextsTest.cpp
  ui/main.cpp)
set_target_properties(ui-tests PROPERTIES AUTOMOC ON)
target_link_libraries(ui-tests PRIVATE support ui Qt6::Test ICU::uc)
add_test(NAME ui COMMAND ui-tests)  # in one process: each start takes longer than most of its tests
set_tests_properties(ui PROPERTIES TIMEOUT 600 COST 10)
