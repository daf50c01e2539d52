# The one place that chooses the Qt the library is built with. Everything
# else names Qt through the variables set here, so a Qt 5 and a Qt 6 build
# differ in nothing but this file's answer.
#
#   ZO_QT                 Qt5 or Qt6: the package and target prefix
#   ZO_QT_MIN_VERSION     the oldest Qt of that major the sources support
#   ZO_QT_COMPONENTS      what the public headers use: linked publicly and
#                         asked for by the installed package config
#   ZO_QT_LIBRARIES       those components as imported targets
#   ZO_QT_PRIVATE_LIBRARIES  what only the library's sources use
#   zo_qt_targets(<var> <component>...)  more components, found and named

set(ZOGRAPHICS_QT_MAJOR 5 CACHE STRING "Qt major version to build against (5 or 6)")
set_property(CACHE ZOGRAPHICS_QT_MAJOR PROPERTY STRINGS 5 6)

if(ZOGRAPHICS_QT_MAJOR STREQUAL "5")
    set(ZO_QT_MIN_VERSION 5.15)
    set(ZO_QT_COMPONENTS Core Gui Widgets Svg)
    set(ZO_QT_PRIVATE_COMPONENTS)
elseif(ZOGRAPHICS_QT_MAJOR STREQUAL "6")
    # Debian 12's Qt 6. The code-page conversions (GB18030 and the rest) stay
    # on QTextCodec, which Qt 6 moved to Core5Compat: QStringConverter in 6.4
    # knows only the Unicode encodings and Latin-1 by name. QGraphicsSvgItem
    # moved to SvgWidgets. No header a host includes uses either, so a host
    # does not need them.
    set(ZO_QT_MIN_VERSION 6.4)
    set(ZO_QT_COMPONENTS Core Gui Widgets Svg)
    set(ZO_QT_PRIVATE_COMPONENTS Core5Compat SvgWidgets)
else()
    message(FATAL_ERROR "ZOGRAPHICS_QT_MAJOR must be 5 or 6, not \"${ZOGRAPHICS_QT_MAJOR}\"")
endif()
set(ZO_QT Qt${ZOGRAPHICS_QT_MAJOR})

# A macro, not a function: Qt's package files set variables (versions, tool
# locations) that AUTOMOC and the callers read in the calling scope.
macro(zo_qt_targets out_var)
    set(${out_var})
    set(_zo_qt_wanted ${ARGN})
    if(_zo_qt_wanted)
        find_package(${ZO_QT} ${ZO_QT_MIN_VERSION} REQUIRED COMPONENTS ${_zo_qt_wanted})
        foreach(_zo_qt_component IN LISTS _zo_qt_wanted)
            list(APPEND ${out_var} ${ZO_QT}::${_zo_qt_component})
        endforeach()
    endif()
endmacro()

zo_qt_targets(ZO_QT_LIBRARIES ${ZO_QT_COMPONENTS})
zo_qt_targets(ZO_QT_PRIVATE_LIBRARIES ${ZO_QT_PRIVATE_COMPONENTS})
message(STATUS "ZoGraphics: building against Qt ${${ZO_QT}_VERSION}")
