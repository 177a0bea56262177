# Warnings for every target of our own; errors where VELMORA_WERROR is on. GCC 12 sees overlapping
# copies inside std::string at -O3 where there are none: -Wrestrict is left out.
add_library(velmora_warnings INTERFACE)
target_compile_options(velmora_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  $<$<CXX_COMPILER_ID:GNU>:-Wuseless-cast>
  -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  $<$<BOOL:${VELMORA_WERROR}>:-Werror>)

# No product and sum are contracted into one rounding: a fit gives the same bits on every machine.
add_library(velmora_arithmetic INTERFACE)
target_compile_options(velmora_arithmetic INTERFACE -ffp-contract=off)

# A folder of the engine as a library of its own:
#   velmora_engine_library(FOLDER source... [USES folder... ] [LIBRARIES library...])
# USES names the folders below that it may include.
function(velmora_engine_library folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES;LIBRARIES")
  list(TRANSFORM arg_USES PREPEND velmora_)
  add_library(velmora_${folder} STATIC ${arg_UNPARSED_ARGUMENTS})
  target_include_directories(velmora_${folder} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(velmora_${folder} PUBLIC velmora_arithmetic ${arg_USES}
    PRIVATE velmora_warnings
    PUBLIC ${arg_LIBRARIES})
endfunction()

# Sources of a library that are compiled once for each width of the processor's vectors: NAME2.cpp for
# every processor, NAME4.cpp and NAME8.cpp for those that have them. Where they are unknown, vectors of
# two lanes serve, as every 64-bit processor has them. Sanitizers leave them out: checks in every one of
# their unrolled operations would take many minutes to compile.
function(velmora_lanes target name)
  set(plain -fno-sanitize=all -O2)
  target_sources(${target} PRIVATE ${name}2.cpp)
  set_source_files_properties(${name}2.cpp PROPERTIES COMPILE_OPTIONS "${plain}")
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    target_sources(${target} PRIVATE ${name}4.cpp ${name}8.cpp)
    set_source_files_properties(${name}4.cpp PROPERTIES COMPILE_OPTIONS "${plain};-mavx2;-mfma")
    set_source_files_properties(${name}8.cpp PROPERTIES
      COMPILE_OPTIONS "${plain};-mavx512f;-mavx512dq;-mavx512vl;-mfma")
    target_compile_definitions(${target} PRIVATE VELMORA_WIDE_LANES)
  endif()
endfunction()

# Stops where a target outside app, help and tests links Qt.
function(velmora_refuse_qt folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    foreach(property LINK_LIBRARIES INTERFACE_LINK_LIBRARIES)
      get_target_property(libraries ${target} ${property})
      if(libraries MATCHES "Qt[0-9]*::")
        message(FATAL_ERROR "${target} stands outside app, help and tests and must not link Qt")
      endif()
    endforeach()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  list(REMOVE_ITEM folders
    ${PROJECT_SOURCE_DIR}/app ${PROJECT_SOURCE_DIR}/help ${PROJECT_SOURCE_DIR}/tests)
  foreach(inner IN LISTS folders)
    velmora_refuse_qt(${inner})
  endforeach()
endfunction()
