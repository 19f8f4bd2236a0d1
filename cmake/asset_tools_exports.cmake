# GCC exports a DLL's explicit template instances only in part: members that are defined inside their class
# stay behind, and a caller who does not inline them cannot link. So the linker is told to export whatever
# belongs to the instances that the target's sources list, one "template class TArray<CElement>;" a line.
function(asset_tools_export_instances target)
  if(NOT MINGW)
    return()
  endif()
  get_target_property(folder ${target} SOURCE_DIR)
  get_target_property(sources ${target} SOURCES)
  set(patterns "")
  foreach(source ${sources})
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    file(READ ${source} text)
    string(REGEX MATCHALL "\n *template (class|struct) [^;(\n]*>" instances "${text}")
    foreach(instance ${instances})
      string(REGEX REPLACE "\n *template [a-z]+ (.*)>" "\\1" name "${instance}")
      string(REGEX REPLACE "<T(>|$)" "<*\\1" name "${name}") # In a macro that stands for several.
      # The linker's patterns know no brackets, commas or blanks, so a "?" stands for each. The second
      # pattern is for a number as last argument, which gets a "u" behind it, the third for arguments that
      # the line leaves to their defaults.
      string(REGEX REPLACE "[^A-Za-z0-9_:*]" "?" name "${name}")
      string(APPEND patterns "    ${name}?::*;\n    ${name}??::*;\n    ${name}??*?::*;\n")
    endforeach()
  endforeach()
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}_exports.map)
  file(CONFIGURE OUTPUT ${script} CONTENT "{\n  global: extern \"C++\" {\n${patterns}  };\n  local: *;\n};\n")
  target_link_options(${target} PRIVATE LINKER:--export-all-symbols LINKER:--version-script=${script})
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
endfunction()
