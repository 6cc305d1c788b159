# CPack runs this on the staged files, to bring them into the form that Debian requires.
set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# CPack's own stripping leaves these sections in.
run(strip --strip-unneeded --remove-section=.comment --remove-section=.note
    ${root}/bin/zeigewerk ${root}/libexec/zeigewerk/zeigewerk-feed)

# COPY, because INSTALL would prepend DESTDIR.
file(COPY ${CPACK_DEBIAN_DOCUMENTS}/copyright ${CPACK_DEBIAN_DOCUMENTS}/changelog
    DESTINATION ${root}/share/doc/zeigewerk
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(GLOB_RECURSE pages ${root}/share/man/*.1)
# Without names and times, so that the package is reproducible.
run(gzip -9n ${root}/share/doc/zeigewerk/changelog ${pages})
