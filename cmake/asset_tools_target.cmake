# What every target of this project has in common: the language, the warnings, hidden symbols, and the
# project's root as the place that includes start from.
function(asset_tools_target target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON)
  if(WIN32)
    set_target_properties(${target} PROPERTIES PREFIX "") # engine_core.dll, not libengine_core.dll
  endif()
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    # The callers' threads may have small stacks.
    -Wframe-larger-than=16384
    $<$<BOOL:${ASSET_TOOLS_WERROR}>:-Werror>
    # GCC 12 sees overlapping copies in std::string's operator+ that are not there.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # An exported function that is called inside its own library may be inlined there.
    $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>
    # Nobody asks errno about a square root, and without it roots can be taken two at a time.
    -fno-math-errno)
endfunction()
