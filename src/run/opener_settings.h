#pragma once

#include "text/text.h"

namespace vantelgis {

/// What a host can change about the file opener and the orderly stop. FILESINIT gives the start
/// values, with which every dialogue goes through the console; the program itself changes none.
struct OpenerSettings {
    int logUnit = 0;           ///< above 0: this unit gets a copy of what opener and closer print
    bool boxMode = false;      ///< dialogues go through message boxes instead of the console
    Text<100> boxTitle;        ///< the program's title in message boxes
    Text<100> boxVersion;      ///< the program's version in message boxes
    char inputDrive = ' ';     ///< not blank: replaces the drive letter of names opened for input
    char outputDrive = ' ';    ///< the same for names opened for output
    bool autoFolders = false;  ///< a missing output folder is made without asking
    int blockSize = 0;         ///< above 0: "O " and "F " hand their bytes over in such blocks
    bool copyMode = false;     ///< inputs are copied, and outputs go, below copyRoot
    Path copyRoot;             ///< the text that stands before every folder of the copy tree
    bool copyExact = false;    ///< copyMode copies the named file, not all of its base name
    Path copyLast;             ///< path of the last file copied or redirected
};
extern "C" OpenerSettings openerSettings;

}  // namespace vantelgis
