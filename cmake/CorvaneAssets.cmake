# The assets that the window embeds: icons, fonts, the program's own icon.

# --- Icons, by their names in Phosphor Icons. Only icons listed here are embedded.
# Regular, for headers, rows and buttons; fill, for selected items; light, for empty states.
set(CORVANE_ICONS
  app-window apple-logo archive arrow-circle-down arrow-clockwise arrow-u-up-left arrow-up bank cards caret-down
  caret-right caret-up-down chart-bar-horizontal chart-pie-slice chats-circle check check-circle circle-notch
  clipboard-text clock-clockwise clock-counter-clockwise coffee cpu cube device-mobile device-mobile-camera
  device-mobile-speaker devices eye eye-slash file file-audio file-code file-image file-magnifying-glass file-text
  file-video file-zip files folder folder-dashed folder-open gear-fine gear-six hammer hard-drive hard-drives house
  info leaf list list-magnifying-glass lock-key lock-simple magnifying-glass memory minus package paperclip question
  scales seal-check shield-check sparkle squares-four stack stop-circle terminal-window toolbox trash trash-simple
  tray user-square users warning warning-circle warning-octagon wrench x-circle)
set(CORVANE_ICON_WEIGHTS regular fill light)
# Bold, for glyphs of 12 points and less.
set(CORVANE_BOLD_ICONS caret-down caret-right caret-up-down check eye minus)

set(CORVANE_ICON_SOURCE ${CMAKE_SOURCE_DIR}/node_modules/@phosphor-icons/core/assets)
if(NOT IS_DIRECTORY ${CORVANE_ICON_SOURCE})
  message(FATAL_ERROR "The icons are not here: run scripts/fetch_assets.py, or \"./dev setup\".")
endif()

# Adds one icon to `files_variable` under the alias weight/name.svg.
function(corvane_collect_icon files_variable name weight)
  if(weight STREQUAL regular)
    set(file ${CORVANE_ICON_SOURCE}/regular/${name}.svg)
  else()
    set(file ${CORVANE_ICON_SOURCE}/${weight}/${name}-${weight}.svg)
  endif()
  if(NOT EXISTS ${file})
    message(FATAL_ERROR "There is no icon \"${name}\" of weight ${weight}: check the lists in CorvaneAssets.cmake "
                        "against ${CORVANE_ICON_SOURCE}.")
  endif()
  set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${weight}/${name}.svg)
  list(APPEND ${files_variable} ${file})
  set(${files_variable} ${${files_variable}} PARENT_SCOPE)
endfunction()

# Embeds the icons into a target under :/corvane/icons.
function(corvane_embed_icons target)
  foreach(name IN LISTS CORVANE_ICONS)
    foreach(weight IN LISTS CORVANE_ICON_WEIGHTS)
      corvane_collect_icon(files ${name} ${weight})
    endforeach()
  endforeach()
  foreach(name IN LISTS CORVANE_BOLD_ICONS)
    corvane_collect_icon(files ${name} bold)
  endforeach()
  qt_add_resources(${target} ${target}_icons PREFIX /corvane/icons FILES ${files})
endfunction()

# --- Fonts. On macOS the text font is the system's own.
# Embeds Inter, and Inter with figures of equal width, under :/corvane/fonts.
function(corvane_embed_fonts target)
  find_program(CORVANE_PYTHON NAMES python3 REQUIRED)
  find_path(CORVANE_INTER_FOLDER NAMES Inter-Regular.otf
    PATHS /usr/share/fonts/opentype/inter /usr/local/share/fonts/inter NO_DEFAULT_PATH)
  if(NOT CORVANE_INTER_FOLDER)
    message(FATAL_ERROR "The font Inter is not installed: install fonts-inter, run \"./dev setup\", or set "
                        "CORVANE_INTER_FOLDER to the folder that holds Inter-Regular.otf.")
  endif()

  set(scripts ${CMAKE_SOURCE_DIR}/assets/fonts)
  set(folder ${CMAKE_BINARY_DIR}/fonts)
  foreach(family InterText InterTabular)
    foreach(weight Regular Medium SemiBold Bold)
      list(APPEND files ${folder}/${family}-${weight}.ttf)
    endforeach()
  endforeach()
  add_custom_command(OUTPUT ${files}
    COMMAND ${CORVANE_PYTHON} -B ${scripts}/build_fonts.py --source ${CORVANE_INTER_FOLDER} --output ${folder}
    DEPENDS ${scripts}/build_fonts.py ${scripts}/cff.py ${scripts}/sfnt.py ${scripts}/truetype.py
    COMMENT "Making the embedded fonts" VERBATIM)
  qt_add_resources(${target} ${target}_fonts PREFIX /corvane/fonts BASE ${folder} FILES ${files})
endfunction()

# Embeds Nunito Bold, for the one large figure, under :/corvane/fonts.
function(corvane_embed_rounded_font target)
  set(source ${CMAKE_SOURCE_DIR}/node_modules/@fontsource/nunito/files/nunito-latin-700-normal.woff)
  if(NOT EXISTS ${source})
    message(FATAL_ERROR "The font Nunito is not here: run scripts/fetch_assets.py, or \"./dev setup\".")
  endif()
  find_program(CORVANE_PYTHON NAMES python3 REQUIRED)
  set(scripts ${CMAKE_SOURCE_DIR}/assets/fonts)
  set(folder ${CMAKE_BINARY_DIR}/fonts)
  set(file ${folder}/Nunito-Bold.ttf)
  add_custom_command(OUTPUT ${file}
    COMMAND ${CORVANE_PYTHON} -B ${scripts}/unpack_woff.py ${source} ${file}
    DEPENDS ${scripts}/unpack_woff.py ${scripts}/sfnt.py ${source}
    COMMENT "Unpacking the rounded font" VERBATIM)
  qt_add_resources(${target} ${target}_rounded_font PREFIX /corvane/fonts BASE ${folder} FILES ${file})
endfunction()

# --- The program's own icon.
# Adds the program render_icon, which draws the icon in several sizes while building.
function(corvane_add_render_icon)
  add_executable(render_icon ${CMAKE_SOURCE_DIR}/assets/icon/render_icon.cpp)
  target_link_libraries(render_icon PRIVATE Qt6::Gui Qt6::Svg)
  corvane_strict_target(render_icon)
  set_target_properties(render_icon PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
endfunction()

set(CORVANE_APP_ICON ${CMAKE_SOURCE_DIR}/assets/icon/corvane.svg)

# Embeds the drawing under :/corvane/icon.
function(corvane_embed_app_icon target)
  set_source_files_properties(${CORVANE_APP_ICON} PROPERTIES QT_RESOURCE_ALIAS corvane.svg)
  qt_add_resources(${target} ${target}_app_icon PREFIX /corvane/icon FILES ${CORVANE_APP_ICON})
endfunction()
