# Read by cpack: the parts that become packages, and the one time that files and archives bear.
set(ENV{SOURCE_DATE_EPOCH} ${CPACK_TOLK_RELEASED})
list(REMOVE_ITEM CPACK_COMPONENTS_ALL Unspecified)
