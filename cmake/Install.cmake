# The installed package: find_package(QOR_File), link QOR_File::QOR_File.
include(CMakePackageConfigHelpers)

install(TARGETS QOR_File EXPORT QOR_FileTargets)
install(DIRECTORY include/QOR_File TYPE INCLUDE)
install(FILES LICENSE README.md CHANGELOG.md TYPE DOC)
install(EXPORT QOR_FileTargets NAMESPACE QOR_File:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QOR_File
        FILE QOR_FileConfig.cmake)
write_basic_package_version_file(QOR_FileConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QOR_FileConfigVersion.cmake DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QOR_File)
if(TARGET qor)
  install(TARGETS qor)
endif()
