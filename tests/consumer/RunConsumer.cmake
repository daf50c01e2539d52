# cmake -P script: install, configure, build and run the outside project.
foreach(_required ZO_BUILD_DIR ZO_PROJECT_DIR ZO_WORK_DIR)
    if(NOT DEFINED ${_required})
        message(FATAL_ERROR "${_required} is not set")
    endif()
endforeach()
if(NOT ZO_BUILD_TYPE)
    set(ZO_BUILD_TYPE Release)
endif()

set(_prefix ${ZO_WORK_DIR}/prefix)
set(_build ${ZO_WORK_DIR}/build)
file(REMOVE_RECURSE ${ZO_WORK_DIR})

function(zo_run step)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE _result)
    if(NOT _result EQUAL 0)
        message(FATAL_ERROR "consumer ${step} failed (${_result}): ${ARGN}")
    endif()
endfunction()

zo_run(install ${CMAKE_COMMAND} --install ${ZO_BUILD_DIR} --prefix ${_prefix} --config ${ZO_BUILD_TYPE})
if(NOT EXISTS ${_prefix}/share/ZoGraphics/data/countries-110m.geojson)
    message(FATAL_ERROR "the basemap data is missing from the install prefix")
endif()
zo_run(configure ${CMAKE_COMMAND} -S ${ZO_PROJECT_DIR} -B ${_build}
    -DCMAKE_PREFIX_PATH=${_prefix}
    -DCMAKE_BUILD_TYPE=${ZO_BUILD_TYPE}
    -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
zo_run(build ${CMAKE_COMMAND} --build ${_build} --config ${ZO_BUILD_TYPE})
zo_run(run ${_build}/zoconsumer)
