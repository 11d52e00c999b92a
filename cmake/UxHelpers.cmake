# Small helpers shared by the library targets.

# The Qt major the whole tree builds against (-DUX_QT_MAJOR=5|6). Targets are
# named through it (Qt${UX_QT_MAJOR}::Widgets). A Qt 6 build installs beside a
# Qt 5 one in the same prefix, as Qt's own libraries do: the package, the
# library files and the header and data folders carry the suffix "6"; a Qt 5
# build keeps the plain names.
set(UX_QT_MAJOR 5 CACHE STRING "Qt major version to build against (5 or 6)")
set_property(CACHE UX_QT_MAJOR PROPERTY STRINGS 5 6)
if(UX_QT_MAJOR STREQUAL "5")
    set(UX_QT_MIN_VERSION 5.15)
    set(UX_QT_SUFFIX "")
elseif(UX_QT_MAJOR STREQUAL "6")
    set(UX_QT_MIN_VERSION 6.2)
    set(UX_QT_SUFFIX "6")
else()
    message(FATAL_ERROR "UX_QT_MAJOR must be 5 or 6, not '${UX_QT_MAJOR}'")
endif()
set(UX_PACKAGE_NAME "UiComponents${UX_QT_SUFFIX}")
# Installed headers: <prefix>/include/uicomponents/ for Qt 5; for Qt 6 one
# folder deeper, so clients of both majors still write <uicomponents/x.h>.
if(UX_QT_SUFFIX)
    set(UX_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/uicomponents${UX_QT_SUFFIX}")
else()
    set(UX_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}")
endif()
set(UX_INSTALL_DATADIR "${CMAKE_INSTALL_DATADIR}/uicomponents${UX_QT_SUFFIX}")

# Warnings that must stay at zero for our own code.
function(ux_target_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()

# Every source, header and form below DIR (recursively), re-globbed on build.
function(ux_glob_sources out_var dir)
    file(GLOB_RECURSE _files CONFIGURE_DEPENDS
        "${dir}/*.cpp" "${dir}/*.h" "${dir}/*.ui")
    list(FILTER _files EXCLUDE REGEX "/resources/")
    set(${out_var} ${_files} PARENT_SCOPE)
endfunction()

# Headers a client may include: every .h that is not private (*_p.h).
function(ux_public_headers out_var)
    set(_public)
    foreach(_f IN LISTS ARGN)
        if(_f MATCHES "\\.h$" AND NOT _f MATCHES "_p\\.h$")
            list(APPEND _public "${_f}")
        endif()
    endforeach()
    list(SORT _public)
    set(${out_var} ${_public} PARENT_SCOPE)
endfunction()

# The directories that hold the given files, for the build-tree include path.
function(ux_header_dirs out_var)
    set(_dirs)
    foreach(_f IN LISTS ARGN)
        get_filename_component(_d "${_f}" DIRECTORY)
        list(APPEND _dirs "${_d}")
    endforeach()
    list(REMOVE_DUPLICATES _dirs)
    set(${out_var} ${_dirs} PARENT_SCOPE)
endfunction()

# One umbrella header that includes every public header by its flat name.
function(ux_generate_umbrella out_file guard)
    set(_text "// Generated at configure time: includes every public header of this library.\n")
    string(APPEND _text "#ifndef ${guard}\n#define ${guard}\n\n")
    foreach(_h IN LISTS ARGN)
        get_filename_component(_name "${_h}" NAME)
        string(APPEND _text "#include \"${_name}\"\n")
    endforeach()
    string(APPEND _text "\n#endif // ${guard}\n")
    file(CONFIGURE OUTPUT "${out_file}" CONTENT "${_text}" @ONLY)
endfunction()

# A .qrc listing every file below BASE_DIR under PREFIX, so new resources need
# no hand-edited resource list. Further ALIAS=PATH arguments add files from
# elsewhere under their alias.
function(ux_generate_qrc out_file prefix base_dir)
    file(GLOB_RECURSE _files CONFIGURE_DEPENDS RELATIVE "${base_dir}" "${base_dir}/*")
    list(FILTER _files EXCLUDE REGEX "(^|/)\\.|\\.qrc$|README")
    list(SORT _files)
    set(_text "<!DOCTYPE RCC><RCC version=\"1.0\">\n<qresource prefix=\"${prefix}\">\n")
    foreach(_f IN LISTS _files)
        string(APPEND _text "    <file alias=\"${_f}\">${base_dir}/${_f}</file>\n")
    endforeach()
    foreach(_extra IN LISTS ARGN)
        string(REPLACE "=" ";" _pair "${_extra}")
        list(GET _pair 0 _alias)
        list(GET _pair 1 _path)
        string(APPEND _text "    <file alias=\"${_alias}\">${_path}</file>\n")
    endforeach()
    string(APPEND _text "</qresource>\n</RCC>\n")
    file(CONFIGURE OUTPUT "${out_file}" CONTENT "${_text}" @ONLY)
endfunction()

# Mirrors the installed flat layout in the build tree: DEST_DIR/<name>.h
# forwards to the header in the source tree, so clients inside the tree
# include <uicomponents/x.h> exactly as installed clients do.
function(ux_forward_headers dest_dir)
    foreach(_h IN LISTS ARGN)
        get_filename_component(_name "${_h}" NAME)
        file(CONFIGURE OUTPUT "${dest_dir}/${_name}" CONTENT "#include \"${_h}\"\n" @ONLY)
    endforeach()
endfunction()

# The headers a client of the shared library can use: those that declare an
# exported class (UICOMPONENTS_EXPORT) or a registered record
# (Q_DECLARE_METATYPE). Internal classes keep their headers in the tree only.
function(ux_exported_headers out_var)
    set(_exported)
    foreach(_h IN LISTS ARGN)
        file(READ "${_h}" _text)
        if(_text MATCHES "UICOMPONENTS_EXPORT|Q_DECLARE_METATYPE")
            list(APPEND _exported "${_h}")
        endif()
    endforeach()
    set(${out_var} ${_exported} PARENT_SCOPE)
endfunction()
