# The Windows test programs that go through the real server: part of the cross builds alone.
enable_language(RC)

# The type library of the tests' host, as a resource that each program carries.
set(HOST_TYPELIB ${CMAKE_CURRENT_BINARY_DIR}/host.tlb)
set(HOST_RESOURCE ${CMAKE_CURRENT_BINARY_DIR}/host.rc)
file(WRITE ${HOST_RESOURCE} "1 TYPELIB \"${HOST_TYPELIB}\"\n")
add_custom_command(OUTPUT ${HOST_TYPELIB}
  COMMAND ${WIDL} $<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,--win64,--win32> -t -I ${PROJECT_SOURCE_DIR}/com/server/idl
          -L ${STDOLE_FOLDER} -o ${HOST_TYPELIB} ${CMAKE_CURRENT_SOURCE_DIR}/com/scenarios/host.idl
  DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/com/scenarios/host.idl VERBATIM)
set_source_files_properties(${HOST_RESOURCE} PROPERTIES OBJECT_DEPENDS ${HOST_TYPELIB})

function(windows_objects name)
  add_library(${name} OBJECT ${ARGN})
  target_link_libraries(${name} PRIVATE arap_com arap_test_support arap_warnings)
endfunction()
function(windows_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE arap_com arap_test_support GTest::gtest_main arap_warnings)
  add_dependencies(${name} NUVARAPBillInterface)
endfunction()

# The process of a host around the DLL, and what puts the DLL in the place of the rules.
file(GLOB HOST_SOURCES CONFIGURE_DEPENDS com/scenarios/*.cpp)
list(FILTER HOST_SOURCES EXCLUDE REGEX "/public_objects\\.cpp$")
windows_objects(arap_windows_host ${HOST_SOURCES})
windows_objects(arap_public_objects com/scenarios/public_objects.cpp)

# The scenarios of each room once more, from the same objects as its direct run.
foreach(room frame settlement otherbills inouttypes lists)
  if(TARGET plugin_${room}_tests)
    windows_program(scenarios_${room} $<TARGET_OBJECTS:plugin_${room}_tests> $<TARGET_OBJECTS:arap_windows_host>
      $<TARGET_OBJECTS:arap_public_objects> ${HOST_RESOURCE})
  endif()
endforeach()

# The server's own tests, and those of a machine that doesn't know it yet.
file(GLOB SERVER_SOURCES CONFIGURE_DEPENDS com/server/*.cpp)
windows_program(server_tests ${SERVER_SOURCES} $<TARGET_OBJECTS:arap_windows_host> ${HOST_RESOURCE})
file(GLOB REGISTRATION_SOURCES CONFIGURE_DEPENDS com/registration/*.cpp)
windows_program(registration_tests ${REGISTRATION_SOURCES} com/server/client.cpp)
target_link_libraries(server_tests PRIVATE version)
target_compile_definitions(server_tests PRIVATE PROJECT_VERSION="${PROJECT_VERSION}")
foreach(program server_tests registration_tests)
  target_compile_definitions(${program} PRIVATE TEST_DATA_DIR="${TEST_DATA_DIR}")
  # What the type compiler writes doesn't answer for our warnings.
  target_include_directories(${program} SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/com/generated)
endforeach()

# The cost of the boundary: a program of its own, run by hand (its first lines tell how).
windows_program(server_bench ${PROJECT_SOURCE_DIR}/bench/server/server_bench.cpp ${PROJECT_SOURCE_DIR}/bench/bench_bill.cpp
  $<TARGET_OBJECTS:arap_windows_host> $<TARGET_OBJECTS:arap_public_objects> ${HOST_RESOURCE})
target_include_directories(server_bench PRIVATE ${PROJECT_SOURCE_DIR}/bench)
set_target_properties(server_bench PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bench)
