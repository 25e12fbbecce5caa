# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# cmake -DPROGRAM=<path> -P NoEngineLinked.cmake: fails if the program needs the HTML engine in order to start. Its
# libraries would cost every start some 80 ms and 60 MB.
execute_process(COMMAND ldd ${PROGRAM} OUTPUT_VARIABLE libraries RESULT_VARIABLE answer)
if(NOT answer EQUAL 0 OR NOT libraries MATCHES "libQt6Core")
    message(FATAL_ERROR "ldd ${PROGRAM} gave no list of libraries (${answer})\n${libraries}")
endif()
if(libraries MATCHES "WebEngine|Qt6Quick|Qt6Qml")
    message(FATAL_ERROR "${PROGRAM} is linked with the HTML engine:\n${libraries}")
endif()
