# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT

# What every target of ours is compiled with. An interface target, so that only our own code is warned about.
add_library(provender_options INTERFACE)
target_compile_features(provender_options INTERFACE cxx_std_20)

# Sums are exact to the last bit: one float operation at a time, never contracted into a fused one.
target_compile_options(provender_options INTERFACE -ffp-contract=off)

target_compile_options(provender_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-align -Wformat=2 -Wnull-dereference -Wdouble-promotion -Wimplicit-fallthrough
  -Wextra-semi -Wsuggest-override -Wundef
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wduplicated-branches -Wlogical-op>
  $<$<BOOL:${PROVENDER_WERROR}>:-Werror>)

target_compile_definitions(provender_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# provender_precompile(<target> <set> <Qt library>...): with PROVENDER_PRECOMPILE, the target's files find the headers
# of these libraries read, which is half of what it costs to compile them. Targets of one set share one such header, so
# their definitions by Qt have to be the same; the compiler says so where they are not. What a file forgets to include
# itself is found where the option is off: in the package's build, and by tidy.sh in all files.
function(provender_precompile target set)
  if(NOT PROVENDER_PRECOMPILE)
    return()
  endif()
  if(NOT TARGET precompiled-${set})
    set(source ${CMAKE_CURRENT_BINARY_DIR}/precompiled-${set}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "// nothing but the headers\n")
    add_library(precompiled-${set} OBJECT ${source})
    set_target_properties(precompiled-${set} PROPERTIES AUTOMOC OFF)
    target_link_libraries(precompiled-${set} PRIVATE ${ARGN} provender_options)
    list(TRANSFORM ARGN REPLACE "Qt6::(.*)" "<Qt\\1>" OUTPUT_VARIABLE headers)
    target_precompile_headers(precompiled-${set} PRIVATE ${headers})
  endif()
  target_precompile_headers(${target} REUSE_FROM precompiled-${set})
endfunction()

file(REMOVE_RECURSE ${PROJECT_BINARY_DIR}/rooms) # what an earlier configuration knew

# provender_rooms(<target>...): targets whose includes tst_layers holds against their link lines.
function(provender_rooms)
  foreach(room IN LISTS ARGN)
    file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/rooms/${room} CONTENT
      "$<TARGET_PROPERTY:${room},SOURCE_DIR>\n$<TARGET_PROPERTY:${room},SOURCES>\n$<TARGET_PROPERTY:${room},LINK_LIBRARIES>\n")
  endforeach()
endfunction()

# provender_library(<name> SOURCES <file>... [FORMS <form>...] USES <target>...): one room as a static library.
function(provender_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;FORMS;USES" ${ARGN})
  # Not AUTOUIC: Ninja does not know which headers it writes, and would compile against the former ones once.
  set(headers)
  if(arg_FORMS)
    qt_wrap_ui(headers ${arg_FORMS})
  endif()
  add_library(${name} STATIC ${arg_SOURCES} ${headers})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  target_link_libraries(${name} PUBLIC ${arg_USES} PRIVATE provender_options)
  if(Qt6::Widgets IN_LIST arg_USES)
    provender_precompile(${name} widgets Qt6::Widgets)
  endif()
  provender_rooms(${name})
endfunction()
