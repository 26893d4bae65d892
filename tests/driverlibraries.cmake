# Small driver libraries for the tests of their loading, each in two kinds: whole, and lacking an entry.
set(TEST_DRIVER_LIBRARIES ${CMAKE_CURRENT_BINARY_DIR}/driverlibraries)
add_custom_target(driver_libraries)
foreach(kind whole lacking)
  foreach(library dlportio USBDMXVB dmxcrd32 MemoCard)
    add_library(${library}_${kind} MODULE platform/driverlibraries/${library}.cpp)
    set_target_properties(${library}_${kind} PROPERTIES PREFIX "" OUTPUT_NAME ${library}
                          LIBRARY_OUTPUT_DIRECTORY ${TEST_DRIVER_LIBRARIES}/${kind})
    if(kind STREQUAL lacking)
      target_compile_definitions(${library}_${kind} PRIVATE LACKS_ENTRY)
    endif()
    add_dependencies(driver_libraries ${library}_${kind})
  endforeach()
endforeach()

# One with a whole memory card in it.
add_library(MemoCard_ram MODULE platform/driverlibraries/MemoCardRam.cpp)
set_target_properties(MemoCard_ram PROPERTIES PREFIX "" OUTPUT_NAME MemoCard
                      LIBRARY_OUTPUT_DIRECTORY ${TEST_DRIVER_LIBRARIES}/ram)
add_dependencies(driver_libraries MemoCard_ram)
