# One version number for the whole release: the project version of the top
# CMakeLists.txt goes into the version resource of every program and DLL, and
# into the names of the zip and the MSI.
#
#   cvcli_version_resource(<target> "<description>")
function(cvcli_version_resource target description)
    get_target_property(type ${target} TYPE)
    get_target_property(name ${target} OUTPUT_NAME)
    if(NOT name)
        set(name ${target})
    endif()
    if(type STREQUAL "EXECUTABLE")
        set(VERSION_FILE_TYPE VFT_APP)
        set(VERSION_FILE_NAME ${name}.exe)
    else()
        set(VERSION_FILE_TYPE VFT_DLL)
        set(VERSION_FILE_NAME ${name}.dll)
    endif()
    set(VERSION_DESCRIPTION "${description}")
    set(VERSION_INTERNAL_NAME ${name})
    set(rc ${CMAKE_BINARY_DIR}/version/${target}.rc)
    configure_file(${CMAKE_SOURCE_DIR}/resources/Version.rc.in ${rc} @ONLY)
    target_sources(${target} PRIVATE ${rc})
endfunction()
