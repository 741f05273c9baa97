# How everything of Kiv is compiled and where it is put.

include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
# Libraries find each other beside themselves, commands find them in the library folder next door.
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

find_program(KIV_CCACHE ccache)
if(KIV_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${KIV_CCACHE}")
endif()

add_library(kiv_build INTERFACE)
target_include_directories(kiv_build INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(kiv_build INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
# Nobody replaces a function of a library of Kiv, so that a call within one may be inlined; a call
# of another library goes straight to its address, without a detour by the linkage table.
target_compile_options(kiv_build INTERFACE -fno-semantic-interposition -fno-plt)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports overlapping copies inside std::string's own operator+.
  target_compile_options(kiv_build INTERFACE -Wno-restrict)
endif()
if(KIV_SANITIZE)
  target_compile_options(kiv_build INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer
                                             -g1)  # a report shows lines only
  # What the tests run is compiled once and runs long. The checks in it let GCC 12 take members of a
  # variant for uninitialised.
  set(KIV_SANITIZED_LIBRARY_OPTIONS -O1 -Wno-maybe-uninitialized)
  target_link_options(kiv_build INTERFACE -fsanitize=address,undefined)
endif()
if(KIV_FUZZ)
  target_compile_options(kiv_build INTERFACE -fsanitize=fuzzer-no-link)
endif()

include(CheckIPOSupported)
check_ipo_supported(RESULT KIV_WHOLE_LIBRARIES OUTPUT KIV_WHOLE_LIBRARIES_REASON LANGUAGES CXX)

# kiv_library(TARGET ALIAS OUTPUT_NAME SOURCES...): a shared library of Kiv, installed and exported
# as Kiv::ALIAS.
function(kiv_library target alias output)
  add_library(${target} SHARED ${ARGN})
  add_library(Kiv::${alias} ALIAS ${target})
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:kiv_build>)
  target_compile_options(${target} PRIVATE ${KIV_SANITIZED_LIBRARY_OPTIONS})
  target_include_directories(
    ${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:include/kiv>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_options(${target} PRIVATE $<$<NOT:$<BOOL:${KIV_SANITIZE}>>:-Wl,--no-undefined>)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${output} EXPORT_NAME ${alias})
  if(KIV_WHOLE_LIBRARIES)  # a release optimises across the files of a library
    set_target_properties(${target} PROPERTIES INTERPROCEDURAL_OPTIMIZATION_RELEASE ON)
    # As above: GCC 12 reports copies beyond every size inside std::string's own operator+.
    target_link_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow>)
  endif()
  install(TARGETS ${target} EXPORT KivTargets
          LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT libraries
          ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
endfunction()
