# SPDX-License-Identifier: Apache-2.0
# What other languages need: the description of the library (GIR), its compiled form
# (typelib), and the Vala binding.
find_program(G_IR_SCANNER g-ir-scanner REQUIRED)
find_program(G_IR_COMPILER g-ir-compiler REQUIRED)
find_program(VAPIGEN vapigen REQUIRED)

file(GLOB introspected_headers CONFIGURE_DEPENDS include/lectern-glib/lectern-*.h)
list(FILTER introspected_headers EXCLUDE REGEX "lectern-glib\\.h$")
set(introspected_sources ${glib_sources})
list(FILTER introspected_sources INCLUDE REGEX "^(lectern-.*|DocumentEvents)\\.cpp$")
list(TRANSFORM introspected_sources PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
# Where GI_TYPELIB_PATH and the options of other compilers point to.
set(LECTERN_INTROSPECTION_DIR ${PROJECT_BINARY_DIR}/introspection CACHE INTERNAL "")
set(introspection_dir ${LECTERN_INTROSPECTION_DIR})
set(gir ${introspection_dir}/Lectern-1.gir)
set(typelib ${introspection_dir}/Lectern-1.typelib)
set(vapi ${introspection_dir}/lectern-glib-1.vapi)
file(WRITE ${introspection_dir}/lectern-glib-1.deps "gio-2.0\n")

# Links a small program with the library and runs it, to ask GObject for properties and
# signals. The program lies in the working directory meanwhile.
add_custom_command(OUTPUT ${gir} DEPENDS lectern_glib_shared ${introspected_headers} ${introspected_sources}
    COMMAND ${CMAKE_COMMAND} -E env "CC=${CMAKE_C_COMPILER}" "LD_LIBRARY_PATH=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}"
            ${G_IR_SCANNER} --quiet --warn-all --warn-error --no-libtool
            --namespace=Lectern --nsversion=1 --identifier-prefix=Lectern --symbol-prefix=lectern
            --include=Gio-2.0 --pkg=gio-2.0 --pkg-export=lectern-glib-1 --c-include=lectern-glib/lectern-glib.h
            -I${CMAKE_CURRENT_SOURCE_DIR}/include --sources-top-dirs=${CMAKE_CURRENT_SOURCE_DIR}
            --library=lectern-glib -L${CMAKE_LIBRARY_OUTPUT_DIRECTORY} --output=${gir}
            ${introspected_headers} ${introspected_sources}
    WORKING_DIRECTORY ${introspection_dir} VERBATIM)
add_custom_command(OUTPUT ${typelib} DEPENDS ${gir}
    COMMAND ${G_IR_COMPILER} ${gir} --output=${typelib} VERBATIM)
add_custom_command(OUTPUT ${vapi} DEPENDS ${gir} Lectern-1.metadata
    COMMAND ${VAPIGEN} --quiet --library=lectern-glib-1 --directory=${introspection_dir} --pkg=gio-2.0
            --metadatadir=${CMAKE_CURRENT_SOURCE_DIR} ${gir} VERBATIM)
add_custom_target(lectern_glib_introspection ALL DEPENDS ${gir} ${typelib} ${vapi})
install(FILES ${gir} DESTINATION ${CMAKE_INSTALL_DATADIR}/gir-1.0 COMPONENT client)
install(FILES ${typelib} DESTINATION ${CMAKE_INSTALL_LIBDIR}/girepository-1.0 COMPONENT client)
install(FILES ${vapi} ${introspection_dir}/lectern-glib-1.deps DESTINATION ${CMAKE_INSTALL_DATADIR}/vala/vapi
        COMPONENT client)
