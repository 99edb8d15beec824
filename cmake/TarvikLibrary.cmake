# tarvik_library(<target> [LINKS <targets>...])
#
# One static library per folder: every .cpp and .h below the calling folder, except the folders that
# hold a CMakeLists.txt of their own (they are targets of their own, such as ui/). The library
# publishes its own headers and no others: each is linked into <build>/include/<target>/ under its
# path below src/, and that folder is the target's only include folder. A target therefore sees its
# own headers and those of the targets it links, so an include that reaches up a floor fails to
# compile.
function(tarvik_library target)
    cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
    set(here ${CMAKE_CURRENT_SOURCE_DIR})
    file(GLOB_RECURSE files CONFIGURE_DEPENDS ${here}/*.cpp ${here}/*.h)
    file(GLOB_RECURSE nested CONFIGURE_DEPENDS ${here}/*/CMakeLists.txt)
    foreach(list_file ${nested})
        get_filename_component(nested_dir ${list_file} DIRECTORY)
        list(FILTER files EXCLUDE REGEX "^${nested_dir}/")
    endforeach()
    add_library(${target} STATIC ${files})

    set(include_root ${CMAKE_BINARY_DIR}/include/${target})
    file(REMOVE_RECURSE ${include_root})
    foreach(file ${files})
        if(file MATCHES "\\.h$")
            file(RELATIVE_PATH path_below_src ${PROJECT_SOURCE_DIR}/src ${file})
            get_filename_component(link_dir ${include_root}/${path_below_src} DIRECTORY)
            file(MAKE_DIRECTORY ${link_dir})
            file(CREATE_LINK ${file} ${include_root}/${path_below_src} SYMBOLIC)
        endif()
    endforeach()
    target_include_directories(${target} PUBLIC ${include_root})
    target_link_libraries(${target} PUBLIC ${ARG_LINKS})
endfunction()
