# What all targets of this project share: the language level, hidden visibility,
# warnings (as errors only where a preset of ours asks for it) and sanitizers.

add_library(tarn_private_flags INTERFACE)
target_compile_options(tarn_private_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion $<$<BOOL:${TARNOI_STRICT}>:-Werror>)
if(TARNOI_SANITIZE)
  # One finding fails a test: undefined behaviour aborts as address errors do.
  target_compile_options(tarn_private_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
    # GCC's manual warns that its own instrumentation sets this one off.
    -Wno-maybe-uninitialized)
  target_link_options(tarn_private_flags INTERFACE -fsanitize=address,undefined)
  # Ahead of a target's own options, so that the tests can do without.
  string(APPEND CMAKE_CXX_FLAGS_DEBUG " -O1")
endif()

# tarn_sources(VARIABLE FOLDER...): every .cpp file of the folders belongs to the
# target that asks; a file is added by being put where it belongs.
function(tarn_sources variable)
  set(sources)
  foreach(folder IN LISTS ARGN)
    file(GLOB found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
    list(APPEND sources ${found})
  endforeach()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# tarn_target_defaults(TARGET): flags of every target of ours, installed or not.
# Project headers are included from the root of the tree ("host/model/Project.h"),
# Coin's and the other libraries' are system headers: their warnings are not ours.
function(tarn_target_defaults target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:tarn_private_flags>)
  get_target_property(type ${target} TYPE)
  if(TARNOI_SANITIZE AND type STREQUAL "EXECUTABLE")
    target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/SanitizerDefaults.cpp")
  endif()
  target_include_directories(${target} PUBLIC
    "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
    "$<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/generated>"
    "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/TarnOI>")
endfunction()

# tarn_library(TARGET EXPORT_NAME LIBRARY_NAME FOLDER MACRO SOURCE...): one of the
# three shared libraries, with its generated export header FOLDER/<Name>Export.h.
include(GenerateExportHeader)
function(tarn_library target export_name library_name folder macro)
  add_library(${target} SHARED ${ARGN})
  add_library(TarnOI::${export_name} ALIAS ${target})
  tarn_target_defaults(${target})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${export_name} OUTPUT_NAME ${library_name}
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  # The libraries find each other wherever they are installed.
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
  generate_export_header(${target}
    EXPORT_MACRO_NAME ${macro}
    EXPORT_FILE_NAME "${PROJECT_BINARY_DIR}/generated/${folder}/${library_name}Export.h")
endfunction()
