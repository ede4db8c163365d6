# SPDX-License-Identifier: Apache-2.0
# What other languages need of a GObject library: its description (GIR), the compiled
# form of that (typelib), and the Vala binding.
find_program(G_IR_SCANNER g-ir-scanner REQUIRED)
find_program(G_IR_COMPILER g-ir-compiler REQUIRED)
find_program(VAPIGEN vapigen REQUIRED)

# Where GI_TYPELIB_PATH and the options of other compilers point to.
set(LECTERN_INTROSPECTION_DIR ${PROJECT_BINARY_DIR}/introspection CACHE INTERNAL "")

# lectern_introspect(TARGET
#     NAMESPACE name        of version 1
#     LIBRARY name          the file name of the target without lib and .so
#     HEADER file           that C programs include
#     SOURCES file...       with comments and public functions, relative to the current folder
#     FLAGS flag...         the compiler's and the scanner's
#     INCLUDES name-1...    namespaces that it uses
#     PACKAGES name...      of Vala and pkg-config, of these namespaces
#     DEPENDS target...)
# makes TARGET_introspection, which is part of everything and installed.
function(lectern_introspect target)
    cmake_parse_arguments(arg "" "NAMESPACE;LIBRARY;HEADER" "SOURCES;FLAGS;INCLUDES;PACKAGES;DEPENDS" ${ARGN})
    set(dir ${LECTERN_INTROSPECTION_DIR})
    set(gir ${dir}/${arg_NAMESPACE}-1.gir)
    set(typelib ${dir}/${arg_NAMESPACE}-1.typelib)
    set(vapi ${dir}/${arg_LIBRARY}-1.vapi)
    list(TRANSFORM arg_INCLUDES PREPEND --include=)
    list(JOIN arg_PACKAGES "\n" packages)
    file(WRITE ${dir}/${arg_LIBRARY}-1.deps "${packages}\n")
    list(TRANSFORM arg_PACKAGES PREPEND --pkg= OUTPUT_VARIABLE pkg)
    # Links a small program with the library and runs it, to ask GObject for properties and
    # signals. The packages of used namespaces that are built here must be found.
    add_custom_command(OUTPUT ${gir} DEPENDS ${target} ${arg_SOURCES} ${arg_DEPENDS}
        COMMAND ${CMAKE_COMMAND} -E env "CC=${CMAKE_C_COMPILER}" "LD_LIBRARY_PATH=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}"
                "PKG_CONFIG_PATH=${PROJECT_BINARY_DIR}/client/glib"
                ${G_IR_SCANNER} --quiet --warn-all --warn-error --no-libtool
                --namespace=${arg_NAMESPACE} --nsversion=1 --identifier-prefix=Lectern --symbol-prefix=lectern
                --add-include-path=${dir} ${arg_INCLUDES} --pkg-export=${arg_LIBRARY}-1 --c-include=${arg_HEADER}
                ${arg_FLAGS} --library=${arg_LIBRARY} -L${CMAKE_LIBRARY_OUTPUT_DIRECTORY} --output=${gir}
                ${arg_SOURCES}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} VERBATIM)
    add_custom_command(OUTPUT ${typelib} DEPENDS ${gir}
        COMMAND ${G_IR_COMPILER} --includedir=${dir} ${gir} --output=${typelib} VERBATIM)
    add_custom_command(OUTPUT ${vapi} DEPENDS ${gir}
        COMMAND ${VAPIGEN} --quiet --library=${arg_LIBRARY}-1 --directory=${dir} --girdir=${dir} --vapidir=${dir}
                --metadatadir=${CMAKE_CURRENT_SOURCE_DIR} ${pkg} ${gir} VERBATIM)
    string(REPLACE "_shared" "_introspection" introspection ${target})
    add_custom_target(${introspection} ALL DEPENDS ${gir} ${typelib} ${vapi})
    install(FILES ${gir} DESTINATION ${CMAKE_INSTALL_DATADIR}/gir-1.0 COMPONENT client)
    install(FILES ${typelib} DESTINATION ${CMAKE_INSTALL_LIBDIR}/girepository-1.0 COMPONENT client)
    install(FILES ${vapi} ${dir}/${arg_LIBRARY}-1.deps DESTINATION ${CMAKE_INSTALL_DATADIR}/vala/vapi
            COMPONENT client)
endfunction()
