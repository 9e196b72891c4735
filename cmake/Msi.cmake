# The MSI installer, made with
#   cmake --build --preset mingw --target msi
# into build/package/cvcli-<version>-win64.msi, beside the zip. wixl and
# msibuild come from the Debian packages wixl and msitools (scripts/bootstrap.sh).
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(CVCLI_MSI ${CMAKE_BINARY_DIR}/package/cvcli-${PROJECT_VERSION}-win64.msi)
set(CVCLI_MSI_SCRIPT ${CMAKE_SOURCE_DIR}/package/build_msi.py)
set(CVCLI_MSI_COMMAND ${Python3_EXECUTABLE} ${CVCLI_MSI_SCRIPT} --bin-dir ${CMAKE_BINARY_DIR}
    --source-dir ${CMAKE_SOURCE_DIR})
add_custom_command(
    OUTPUT ${CVCLI_MSI}
    COMMAND ${CVCLI_MSI_COMMAND} --version ${PROJECT_VERSION} --output ${CVCLI_MSI}
    DEPENDS ${CVCLI_MSI_SCRIPT} ${CMAKE_SOURCE_DIR}/package/cvcli.wxs ${CMAKE_SOURCE_DIR}/idl/Corvane.idl
            ${CMAKE_SOURCE_DIR}/simulator/scenarios/demo.json ${CVCLI_USER_DOCUMENTS}
            cvcli CorvaneRes CorvanePS corvane-sim
    VERBATIM)
add_custom_target(msi DEPENDS ${CVCLI_MSI})
