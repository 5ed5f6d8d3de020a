# What every target of the house shares: the language, the warnings, the sanitizers, ccache.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

find_program(VORNA_CCACHE ccache)
if(VORNA_CCACHE)
  # The sloppiness that ccache needs to keep objects made with a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${VORNA_CCACHE})
endif()

add_library(vorna_common INTERFACE)
target_include_directories(vorna_common INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(vorna_common INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Wold-style-cast -Woverloaded-virtual
  # Where several sources are one unit, a local name may be a global one of another source.
  $<IF:$<BOOL:${CMAKE_UNITY_BUILD}>,-Wshadow=local,-Wshadow>
  # There, too, a class of one source seems to be another file's.
  $<$<BOOL:${CMAKE_UNITY_BUILD}>:-Wno-subobject-linkage>
  # A record initialised by name leaves the rest at its defaults on purpose.
  -Wno-missing-field-initializers
  # g++ 12 warns of an overlap in its own std::string, falsely, once it inlines enough.
  -Wno-restrict
  # Nor does clang know all of these.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-unknown-warning-option>
  $<$<BOOL:${VORNA_WERROR}>:-Werror>)
if(VORNA_SANITIZE)
  target_compile_options(vorna_common INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vorna_common INTERFACE -fsanitize=address,undefined)
endif()
if(VORNA_FUZZ)
  target_compile_options(vorna_common INTERFACE -fsanitize=fuzzer-no-link)
endif()

# One folder of the house as a library: vorna_folder(<name> SOURCES <files> USES <targets>).
# The alias Vorna::<name> is what others link.
function(vorna_folder name)
  cmake_parse_arguments(FOLDER "" "" "SOURCES;USES;PRIVATE_USES" ${ARGN})
  add_library(vorna_${name} STATIC ${FOLDER_SOURCES})
  add_library(Vorna::${name} ALIAS vorna_${name})
  target_link_libraries(vorna_${name} PUBLIC vorna_common ${FOLDER_USES}
                                      PRIVATE ${FOLDER_PRIVATE_USES})
  # A folder may become part of a shared library, which shows nothing of it.
  set_target_properties(vorna_${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# A program of the product: it stands in the assembled installation folder, whose files it takes as
# its own, and build/<preset>/bin holds a link to it.
function(vorna_program name)
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/installation)
  add_custom_command(TARGET ${name} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/bin
    COMMAND ${CMAKE_COMMAND} -E create_symlink ../installation/${name}
            ${CMAKE_BINARY_DIR}/bin/${name}
    VERBATIM)
endfunction()
