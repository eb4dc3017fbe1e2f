# CPack takes every library below /usr/lib for one that the dynamic linker has to be told of. Ours are loaded by their
# path, from a folder where it does not look, so the packages need no scripts at all.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(unpacked "${package}.unpacked")
  execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${unpacked}" COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE "${unpacked}/DEBIAN/postinst" "${unpacked}/DEBIAN/postrm")
  execute_process(COMMAND dpkg-deb --root-owner-group --build "${unpacked}" "${package}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE "${unpacked}")
endforeach()
