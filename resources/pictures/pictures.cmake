# The pictures and icons. Included where the resource module is made; leaves in
#
#     kolma_picture_files    what the module's objects depend on
#
# and the bitmaps and icons themselves in pictures/, beside capabilities/.

find_package(Qt6 REQUIRED COMPONENTS Gui Svg)
find_package(CLI11 REQUIRED)

set(picture_data ${CMAKE_CURRENT_SOURCE_DIR}/pictures)
add_executable(kolma_picture
  ${picture_data}/tool/PictureRenderer.cpp ${picture_data}/tool/main.cpp ${picture_data}/tool/pictureFiles.cpp)
target_link_libraries(kolma_picture PRIVATE kolma_resources_headers kolma_plain_options Qt6::Gui Qt6::Svg CLI11::CLI11)
# It serves the build alone and is not for bin, which is installed.
set_target_properties(kolma_picture PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})

set(picture_folder ${CMAKE_CURRENT_BINARY_DIR}/pictures)
file(MAKE_DIRECTORY ${picture_folder})
file(GLOB picture_drawings CONFIGURE_DEPENDS ${picture_data}/*.svg)
file(GLOB icon_drawings CONFIGURE_DEPENDS ${picture_data}/icons/*.svg)
set(kolma_picture_files)
foreach(drawing IN LISTS picture_drawings)
  cmake_path(GET drawing STEM name)
  list(APPEND kolma_picture_files ${picture_folder}/${name}.bmp)
endforeach()
foreach(drawing IN LISTS icon_drawings)
  cmake_path(GET drawing STEM name)
  list(APPEND kolma_picture_files ${picture_folder}/${name}.ico)
endforeach()
add_custom_command(
  OUTPUT ${kolma_picture_files}
  COMMAND kolma_picture --out ${picture_folder} --bitmaps ${picture_drawings} --icons ${icon_drawings}
  DEPENDS kolma_picture ${picture_drawings} ${icon_drawings}
  COMMENT "Drawing the pictures"
  VERBATIM)
list(APPEND kolma_picture_files ${picture_drawings})
