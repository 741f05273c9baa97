# What `cmake --install` puts where, and the package for find_package(Kiv).

include(CMakePackageConfigHelpers)

# The grammars and what they are made of are the parsers' own, and need PEGTL.
install(DIRECTORY framework enum_integers solver DESTINATION include/kiv
        FILES_MATCHING PATTERN "*.h" PATTERN "grammar.h" EXCLUDE
        PATTERN "tokens.h" EXCLUDE PATTERN "syntax_error.h" EXCLUDE)
install(EXPORT KivTargets NAMESPACE Kiv:: DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Kiv"
        FILE KivTargets.cmake)
file(WRITE "${PROJECT_BINARY_DIR}/KivConfig.cmake"
     "include(\"\${CMAKE_CURRENT_LIST_DIR}/KivTargets.cmake\")\n")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KivConfigVersion.cmake"
                                 COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/KivConfig.cmake" "${PROJECT_BINARY_DIR}/KivConfigVersion.cmake"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Kiv")
