# Warnings for every target of our own; errors where VELMORA_WERROR is on. GCC 12 sees overlapping
# copies inside std::string at -O3 where there are none: -Wrestrict is left out.
add_library(velmora_warnings INTERFACE)
target_compile_options(velmora_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wuseless-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wno-restrict
  $<$<BOOL:${VELMORA_WERROR}>:-Werror>)

# No product and sum are contracted into one rounding: a fit gives the same bits on every machine.
add_library(velmora_arithmetic INTERFACE)
target_compile_options(velmora_arithmetic INTERFACE -ffp-contract=off)

# A library of the core. It links nothing but the standard library: linking Qt to it is refused.
function(velmora_core_library name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC velmora_arithmetic PRIVATE velmora_warnings)
  cmake_language(EVAL CODE "cmake_language(DEFER CALL velmora_refuse_qt ${name})")
endfunction()

function(velmora_refuse_qt name)
  foreach(property LINK_LIBRARIES INTERFACE_LINK_LIBRARIES)
    get_target_property(libraries ${name} ${property})
    if(libraries MATCHES "Qt[0-9]*::")
      message(FATAL_ERROR "${name} is part of the core and must not link ${libraries}")
    endif()
  endforeach()
endfunction()
