# Tests of what documents show, against the installed library (the test install.prefix makes that).
set(documentTools ${PROJECT_BINARY_DIR}/tests/install/tools)
set(installedPrefix ${PROJECT_BINARY_DIR}/tests/install/prefix)

# velmar_test_document(NAME COMMAND...): a test in the environment that the documents' commands are run in.
function(velmar_test_document name)
  add_test(NAME ${name} COMMAND ${ARGN})
  set_tests_properties(${name} PROPERTIES
    FIXTURES_REQUIRED prefix
    ENVIRONMENT "source=${PROJECT_SOURCE_DIR};prefix=${installedPrefix};lib=${installedPrefix}/${CMAKE_INSTALL_LIBDIR};\
CC=${documentTools}/cc;PYTHONDONTWRITEBYTECODE=1"
    ENVIRONMENT_MODIFICATION PATH=path_list_prepend:${documentTools})
endfunction()

# velmar_test_host(NAME SECTION): runs the example of a section of docs/hosts.md.
function(velmar_test_host name section)
  velmar_test_document(hosts.${name} sh ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/example.sh
                       ${PROJECT_SOURCE_DIR}/docs/hosts.md ${section} ${CMAKE_CURRENT_BINARY_DIR}/${name})
endfunction()
