# The release zip, for copy-and-run deployment, made with
#   cmake --build --preset mingw --target package
# A flat layout: cvcli with its message library and proxy/stub DLL, the
# registration scripts, the simulator with the demo scenario as its default
# scenario (scenario.json beside it), and the user documents under docs\.
# The developer documents stay in the source tree.
install(PROGRAMS $<TARGET_FILE:cvcli> $<TARGET_FILE:corvane-sim> DESTINATION .)
install(FILES $<TARGET_FILE:CorvaneRes> $<TARGET_FILE:CorvanePS> DESTINATION .)
install(FILES ${CMAKE_SOURCE_DIR}/package/register.cmd ${CMAKE_SOURCE_DIR}/package/unregister.cmd DESTINATION .)
install(FILES ${CMAKE_SOURCE_DIR}/simulator/scenarios/demo.json DESTINATION . RENAME scenario.json)
set(CVCLI_USER_DOCUMENTS user-guide.md commands.md exit-status.md simulator.md)
list(TRANSFORM CVCLI_USER_DOCUMENTS PREPEND ${CMAKE_SOURCE_DIR}/docs/)
install(FILES ${CVCLI_USER_DOCUMENTS} DESTINATION docs)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME cvcli)
set(CPACK_PACKAGE_VENDOR Corvane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_SYSTEM_NAME win64)
set(CPACK_PACKAGE_FILE_NAME cvcli-${PROJECT_VERSION}-win64)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_STRIP_FILES OFF)
include(CPack)

include(${CMAKE_CURRENT_LIST_DIR}/Msi.cmake)
