# The capability resources. Included where the resource module is made; leaves in
#
#     kolma_capability_files   what the module's objects depend on
#     kolma_capability_folder  the folder under which the resource script finds capabilities/*.bin

find_package(nlohmann_json 3.9 REQUIRED)
find_package(CLI11 REQUIRED)

set(capability_data ${CMAKE_CURRENT_SOURCE_DIR}/capabilities)
set(capability_tool ${capability_data}/tool)
add_library(kolma_capabilitytool STATIC
  ${capability_tool}/CapabilityChecker.cpp ${capability_tool}/CapabilitySchema.cpp ${capability_tool}/Composition.cpp
  ${capability_tool}/FamilyFile.cpp ${capability_tool}/FaultList.cpp ${capability_tool}/JobStart.cpp
  ${capability_tool}/JsonFile.cpp ${capability_tool}/SharedData.cpp ${capability_tool}/SizeTable.cpp
  ${capability_tool}/StockChecker.cpp ${capability_tool}/StockDatabase.cpp ${capability_tool}/SupportedFeatures.cpp
  ${capability_tool}/ValueReader.cpp ${capability_tool}/checkCapabilities.cpp ${capability_tool}/composeCapabilities.cpp)
target_link_libraries(kolma_capabilitytool
  PUBLIC kolma_resources_headers jtcore_printer jtcore_anlxlate jtcore_featuresettings jtcore_compress kolma_options
         nlohmann_json::nlohmann_json)

add_executable(kolma_capc ${capability_tool}/main.cpp)
target_link_libraries(kolma_capc PRIVATE kolma_capabilitytool CLI11::CLI11)
# It serves the build alone and is not for bin, which is installed.
set_target_properties(kolma_capc PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})

set(kolma_capability_folder ${CMAKE_CURRENT_BINARY_DIR})
set(kolma_capability_files)
file(MAKE_DIRECTORY ${kolma_capability_folder}/capabilities)
file(GLOB capability_shared CONFIGURE_DEPENDS ${capability_data}/shared/*.json)
file(GLOB capability_families CONFIGURE_DEPENDS ${capability_data}/families/*.json)

# kolma_capability_resource(FAMILY_FILE FORM NAME): makes capabilities/NAME.bin.
function(kolma_capability_resource family_file form name)
  set(output ${kolma_capability_folder}/capabilities/${name}.bin)
  add_custom_command(
    OUTPUT ${output}
    COMMAND kolma_capc --data ${capability_data} --family ${family_file} --form ${form} --out ${output}
    DEPENDS kolma_capc ${family_file} ${capability_shared}
    COMMENT "Composing the capabilities ${name}"
    VERBATIM)
  set(kolma_capability_files ${kolma_capability_files} ${output} PARENT_SCOPE)
endfunction()

# Family 6 speaks for 5 in the older form, and 17 has one resource for both.
set(capability_families_without_older 05 17)
foreach(family_file IN LISTS capability_families)
  cmake_path(GET family_file FILENAME family_name)
  string(SUBSTRING ${family_name} 0 2 number)
  kolma_capability_resource(${family_file} 1 ${number})
  if(NOT number IN_LIST capability_families_without_older)
    kolma_capability_resource(${family_file} 2 ${number}-older)
  endif()
endforeach()
