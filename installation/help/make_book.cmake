# Makes one help book: a folder's topics, pictures and lists with the shared style sheet, compiled
# by chmcmd. To be given: CHMCMD, SOURCE (the folder), STYLE (the style sheet), STAGE (a folder to
# work in, which is emptied), BOOK (the file to make).
#
# chmcmd tells errors and dead links in its output alone. The files to pack are written behind the
# options of its project.
file(REMOVE_RECURSE ${STAGE})
file(COPY ${SOURCE}/ ${STYLE} DESTINATION ${STAGE})
file(GLOB files RELATIVE ${STAGE} ${STAGE}/*.html ${STAGE}/*.css ${STAGE}/*.png ${STAGE}/*.jpg)
list(JOIN files "\n" lines)
file(APPEND ${STAGE}/book.hhp "\n[FILES]\n${lines}\n")

execute_process(COMMAND ${CHMCMD} --html-scan book.hhp
  WORKING_DIRECTORY ${STAGE}
  OUTPUT_VARIABLE told ERROR_VARIABLE told RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR told MATCHES "Error|Warning" OR NOT EXISTS ${STAGE}/book.chm)
  message(FATAL_ERROR "${SOURCE}: no help book could be made.\n${told}")
endif()
get_filename_component(folder ${BOOK} DIRECTORY)
file(MAKE_DIRECTORY ${folder})
file(RENAME ${STAGE}/book.chm ${BOOK})
