# Puts the gestures into the rig and the rig into the metadata of the drawing.
file(READ ${SOURCES}/gestures.xml gestures)
string(REGEX REPLACE "</?h:gestures[^>]*>" "" gestures "${gestures}")
file(READ ${SOURCES}/rig.xml rig)
string(CONFIGURE "${rig}" rig @ONLY)
configure_file(${SOURCES}/genie.svg ${OUTPUT} @ONLY)
