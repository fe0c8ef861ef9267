# What the application reads while it runs, in one folder beside the programs: share/orlo of the build
# tree and of an installation.
include_guard(GLOBAL)

set(ORLO_RESOURCE_DIR ${CMAKE_BINARY_DIR}/share/orlo)
find_program(ORLO_GENRB genrb REQUIRED)

# orlo_message_bundles(<target> <source folder> <output folder> <locale>...): compiles the catalogues
# <locale>.txt of a folder.
function(orlo_message_bundles target source out)
    list(TRANSFORM ARGN APPEND .txt OUTPUT_VARIABLE names)
    list(TRANSFORM names PREPEND ${source}/ OUTPUT_VARIABLE sources)
    list(TRANSFORM ARGN REPLACE "(.+)" "${out}/\\1.res" OUTPUT_VARIABLE results)
    add_custom_command(OUTPUT ${results}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${out}
        COMMAND ${ORLO_GENRB} --strict --quiet --encoding UTF-8
                --sourcedir ${source} --destdir ${out} ${names}
        DEPENDS ${sources} VERBATIM)
    add_custom_target(${target} ALL DEPENDS ${results})
endfunction()

# orlo_settings_files(<target> <source folder> <output folder> <file>...): copies files with their
# folders.
function(orlo_settings_files target source out)
    set(results)
    foreach(file IN LISTS ARGN)
        add_custom_command(OUTPUT ${out}/${file}
            COMMAND ${CMAKE_COMMAND} -E copy ${source}/${file} ${out}/${file}
            DEPENDS ${source}/${file} VERBATIM)
        list(APPEND results ${out}/${file})
    endforeach()
    add_custom_target(${target} ALL DEPENDS ${results})
endfunction()
