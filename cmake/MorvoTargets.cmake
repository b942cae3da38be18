include(GNUInstallDirs)

# Warning and sanitizer flags shared by every target of the project.
add_library(morvo_warnings INTERFACE)
target_compile_options(morvo_warnings INTERFACE -Wall -Wextra $<$<BOOL:${MORVO_WERROR}>:-Werror>)
if(MORVO_SANITIZE)
  target_compile_options(morvo_warnings INTERFACE
    -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(morvo_warnings INTERFACE -fsanitize=address,undefined)
endif()

# morvo_add_library(name [DEPENDS dep...]): one static library for one folder of the layout,
# built from every source in the folder, exported as Morvo::name.
function(morvo_add_library name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  set(target morvo_${name})
  add_library(${target} STATIC ${sources} ${headers})
  add_library(Morvo::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} POSITION_INDEPENDENT_CODE ON)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/library>
    $<INSTALL_INTERFACE:include/morvo>)
  target_link_libraries(${target} PUBLIC ${ARG_DEPENDS} PRIVATE $<BUILD_INTERFACE:morvo_warnings>)
  set_property(GLOBAL APPEND PROPERTY MORVO_LIBRARY_TARGETS ${target})
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/morvo/${name})
endfunction()
