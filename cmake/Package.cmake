# The release package: one zip for Windows administrators, made with
#   cmake --build --preset mingw --target package
# cvcli with its message library and proxy/stub DLL, the simulator with its
# registration scripts and demo scenario, and the documentation.
install(PROGRAMS $<TARGET_FILE:cvcli> $<TARGET_FILE:corvane-sim> DESTINATION .)
install(FILES $<TARGET_FILE:CorvaneRes> $<TARGET_FILE:CorvanePS> DESTINATION .)
install(FILES ${CMAKE_SOURCE_DIR}/package/register.cmd ${CMAKE_SOURCE_DIR}/package/unregister.cmd DESTINATION .)
install(FILES ${CMAKE_SOURCE_DIR}/README.md DESTINATION .)
install(FILES ${CMAKE_SOURCE_DIR}/simulator/scenarios/demo.json DESTINATION scenarios)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/ DESTINATION docs FILES_MATCHING PATTERN "*.md")

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME cvcli)
set(CPACK_PACKAGE_VENDOR Corvane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_SYSTEM_NAME win64)
set(CPACK_PACKAGE_FILE_NAME cvcli-${PROJECT_VERSION}-win64)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY ON)
set(CPACK_STRIP_FILES OFF)
include(CPack)
