# docs/Doxyfile as a reader runs it, but writing into WORK_DIR and keeping the
# warnings in a log of their own.
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}")
file(WRITE "${WORK_DIR}/Doxyfile"
    "@INCLUDE = ${SOURCE_DIR}/docs/Doxyfile\n"
    "OUTPUT_DIRECTORY = ${WORK_DIR}\n"
    "WARN_LOGFILE = ${WORK_DIR}/warnings.log\n")
execute_process(COMMAND "${DOXYGEN}" "${WORK_DIR}/Doxyfile"
    WORKING_DIRECTORY "${SOURCE_DIR}"
    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "doxygen failed (${rc}):\n${out}\n${err}")
endif()
file(READ "${WORK_DIR}/warnings.log" warnings)
if(NOT warnings STREQUAL "")
    message(FATAL_ERROR "doxygen warnings:\n${warnings}")
endif()
if(NOT EXISTS "${WORK_DIR}/html/index.html")
    message(FATAL_ERROR "no html/index.html in ${WORK_DIR}")
endif()
