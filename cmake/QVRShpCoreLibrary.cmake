# The library's sources, and how every variant of it is compiled.
file(GLOB QVRShpCore_sources CONFIGURE_DEPENDS
     ${PROJECT_SOURCE_DIR}/frame/foundation/*.cpp
     ${PROJECT_SOURCE_DIR}/containers/*.cpp
     ${PROJECT_SOURCE_DIR}/frame/primitives/*.cpp
     ${PROJECT_SOURCE_DIR}/results/*.cpp
     ${PROJECT_SOURCE_DIR}/QVRShpShape/QVRShpShp.m/src/*.cpp
     ${PROJECT_SOURCE_DIR}/frame/module/*.cpp)
file(GLOB QVRShpCore_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/*.h)

# Warnings are errors for us, not for those who build us.
add_library(QVRShpCore_warnings INTERFACE)
if(QVRSHPCORE_DEVELOPER)
  target_compile_options(QVRShpCore_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
endif()

# Results must not depend on the optimiser. Nobody asks errno about a square root.
function(qvrshpcore_configure target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_options(${target} PRIVATE -ffp-contract=off -fno-fast-math -fno-math-errno)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A unique symbol would keep the library resident after dlclose. The straight-line vectoriser of g++ 12 drops the
    # rounding of a pair of doubles to float and back, from -O2 on.
    target_compile_options(${target} PRIVATE -fno-gnu-unique -fno-tree-slp-vectorize)
  endif()
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    # Called only where the machine has the instructions.
    set_source_files_properties(${PROJECT_SOURCE_DIR}/QVRShpShape/QVRShpShp.m/src/shp_WeightedSumsAvx.cpp
                                TARGET_DIRECTORY ${target} PROPERTIES COMPILE_OPTIONS -mavx)
    set_source_files_properties(${PROJECT_SOURCE_DIR}/QVRShpShape/QVRShpShp.m/src/shp_VectorKernelsAvx2.cpp
                                TARGET_DIRECTORY ${target} PROPERTIES COMPILE_OPTIONS -mavx2)
  endif()
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                             PRIVATE ${PROJECT_SOURCE_DIR}/frame/foundation ${PROJECT_SOURCE_DIR}/frame/module
                                     ${PROJECT_SOURCE_DIR}/QVRShpShape/QVRShpShp.m/src)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:QVRShpCore_warnings>)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden
                        VISIBILITY_INLINES_HIDDEN ON POSITION_INDEPENDENT_CODE ON)
endfunction()

add_library(QVRShpCore SHARED ${QVRShpCore_sources})
add_library(QVRShpCore::QVRShpCore ALIAS QVRShpCore)
qvrshpcore_configure(QVRShpCore)
set_target_properties(QVRShpCore PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})

if(UNIX AND NOT APPLE)
  target_link_options(QVRShpCore PRIVATE -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/QVRShpCore.map)
  set_target_properties(QVRShpCore PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/QVRShpCore.map)
endif()

# Nothing may be left to be found at run time; clang's sanitizers are, by design.
if(NOT (CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND "${CMAKE_CXX_FLAGS}" MATCHES "-fsanitize"))
  target_link_options(QVRShpCore PRIVATE -Wl,--no-undefined)
endif()
