# Installs the build into a temporary prefix, checks that the Designer plugin
# landed where Designer looks, then builds and runs a client whose window is a
# Designer form using the library's widgets.
file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
    endif()
    set(last_output "${out}${err}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
file(GLOB plugin "${prefix}/lib*/qt${UX_QT_MAJOR}/plugins/designer/*uicomponentsplugin*")
if(NOT plugin)
    message(FATAL_ERROR "no Designer plugin under ${prefix}/<libdir>/qt${UX_QT_MAJOR}/plugins/designer")
endif()
run(${CMAKE_COMMAND} -S "${FORM_DIR}" -B "${WORK_DIR}/build" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${prefix}" -DCMAKE_BUILD_TYPE=Release -DUX_QT_MAJOR=${UX_QT_MAJOR})
run(${CMAKE_COMMAND} --build "${WORK_DIR}/build")
run("${WORK_DIR}/build/formclient")
message("${last_output}")
