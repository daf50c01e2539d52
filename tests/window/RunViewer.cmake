# cmake -P script: runs zomapview with ZO_ARGS ('|'-separated) and checks its
# exit code, optionally a text on stderr and the size of the PNG it wrote.
string(REPLACE "|" ";" _args "${ZO_ARGS}")
execute_process(COMMAND ${ZO_VIEWER} ${_args}
    RESULT_VARIABLE _result OUTPUT_VARIABLE _out ERROR_VARIABLE _err)
if(NOT "${_result}" STREQUAL "${ZO_EXPECT_EXIT}")
    message(FATAL_ERROR "exit ${_result}, expected ${ZO_EXPECT_EXIT}\n${_out}\n${_err}")
endif()
if(DEFINED ZO_EXPECT_ERROR AND NOT _err MATCHES "${ZO_EXPECT_ERROR}")
    message(FATAL_ERROR "stderr lacks '${ZO_EXPECT_ERROR}':\n${_err}")
endif()
if(DEFINED ZO_EXPECT_PNG)
    # PNG signature, then the IHDR chunk with width and height (big endian).
    file(READ "${ZO_EXPECT_PNG}" _header LIMIT 24 HEX)
    string(SUBSTRING "${_header}" 0 16 _signature)
    string(SUBSTRING "${_header}" 32 8 _width)
    string(SUBSTRING "${_header}" 40 8 _height)
    math(EXPR _width "0x${_width}")
    math(EXPR _height "0x${_height}")
    if(NOT _signature STREQUAL "89504e470d0a1a0a" OR NOT "${_width}x${_height}" STREQUAL "${ZO_EXPECT_SIZE}")
        message(FATAL_ERROR "${ZO_EXPECT_PNG} is not a ${ZO_EXPECT_SIZE} PNG (${_signature}, ${_width}x${_height})")
    endif()
endif()
