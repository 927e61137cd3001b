# Settings that every target shares, and the functions by which targets are made.

include(GNUInstallDirs)
find_package(Threads REQUIRED)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# The build tree runs in place: programs in bin, everything that lies beside the driver in lib/kolma/3.
set(KOLMA_DRIVER_DIR lib/kolma/3)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${KOLMA_DRIVER_DIR})
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/archive)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${KOLMA_DRIVER_DIR}")

# The layers' include folders (kolma_layer) are the same for every build tree, so that the compiler cache serves them all.
set(KOLMA_LAYERS ${CMAKE_SOURCE_DIR}/build/layers)

# For every target; kolma_options adds what finds faults at run time. A tool of the build that draws with the toolkit does
# without: the toolkit's own threads, which nobody instrumented, look like races.
add_library(kolma_plain_options INTERFACE)
target_compile_options(kolma_plain_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Werror
  # Raising sites record their source file: relative to the tree, the same on every machine.
  -fmacro-prefix-map=${CMAKE_SOURCE_DIR}/= -fmacro-prefix-map=${KOLMA_LAYERS}/platform/=
  -fmacro-prefix-map=${KOLMA_LAYERS}/jtcore/= -fmacro-prefix-map=${KOLMA_LAYERS}/plugin_ui/=)
target_link_libraries(kolma_plain_options INTERFACE Threads::Threads)
add_library(kolma_options INTERFACE)
target_link_libraries(kolma_options INTERFACE kolma_plain_options)
if(KOLMA_SANITIZE)
  target_compile_options(kolma_options INTERFACE
    -fsanitize=${KOLMA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kolma_options INTERFACE -fsanitize=${KOLMA_SANITIZE})
endif()
if(KOLMA_FUZZ)
  target_compile_options(kolma_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(kolma_options INTERFACE -fsanitize=address,undefined)
endif()

# kolma_layer(NAME): makes kolma_NAME_headers, by which a target sees "NAME/..." and nothing else of the tree.
# A layer is reached through a folder of its own under build, so an include against the direction of
# the arrows (jtcore of plugin_ui, say) does not compile.
function(kolma_layer name)
  set(root ${KOLMA_LAYERS}/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${name} ${root}/${name} SYMBOLIC)
  add_library(kolma_${name}_headers INTERFACE)
  target_include_directories(kolma_${name}_headers INTERFACE ${root})
endfunction()

# kolma_room(NAME SOURCES ... LIBS ...): a static library that is one room of jtcore.
function(kolma_room name)
  cmake_parse_arguments(room "" "" "SOURCES;LIBS" ${ARGN})
  add_library(${name} STATIC ${room_SOURCES})
  target_link_libraries(${name} PUBLIC kolma_jtcore_headers kolma_options kolmaplatform ${room_LIBS})
endfunction()
