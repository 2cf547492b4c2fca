# Fails unless the text of PROGRAM stands word for word in DOCUMENT.
file(READ "${PROGRAM}" program)
file(READ "${DOCUMENT}" document)
string(FIND "${document}" "${program}" place)
if(place EQUAL -1)
  message(FATAL_ERROR "${DOCUMENT} does not show ${PROGRAM} as it is")
endif()
