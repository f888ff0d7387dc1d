# The files of data/ that come with the program.
set(user_data ${PROJECT_SOURCE_DIR}/data/Default50.TVL ${PROJECT_SOURCE_DIR}/data/SoilsName.txt
    ${PROJECT_SOURCE_DIR}/data/SafeHeads.txt)
file(GLOB data_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/*.*)
file(GLOB help_pictures CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/help/*.*)
file(GLOB sample_designs CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/samples/*.[PCDXL][FSH][DH])
file(GLOB sample_scripts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/samples/*.script)

# A built program has them beside it, as an unpacked copy has. What its user has changed there stays as it is; the rest
# follows the project's files.
foreach(data_file ${data_files} ${help_pictures} ${sample_designs})
  file(RELATIVE_PATH data_name ${PROJECT_SOURCE_DIR}/data ${data_file})
  if(NOT data_file IN_LIST user_data)
    configure_file(${data_file} ${PROJECT_BINARY_DIR}/${data_name} COPYONLY)
  elseif(NOT EXISTS ${PROJECT_BINARY_DIR}/${data_name})
    file(COPY ${data_file} DESTINATION ${PROJECT_BINARY_DIR})
  endif()
endforeach()
