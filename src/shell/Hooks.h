#pragma once

#include "store/RegisterKey.h"

#include <QUrl>
#include <functional>

namespace ui {
struct Session;
}

namespace shell {

class MainWindow;
class QuestionnaireFrame;

// The places where functions that are built elsewhere plug into the shell. Each starts as a
// plain "not available yet" message, so that no entry of the program is a silent dead end; the
// area that builds the function replaces its hook once, at start-up, before any window opens.
struct Hooks {
    using MainEntry = std::function<void(MainWindow&, ui::Session&)>;
    using ListAction =
        std::function<void(QuestionnaireFrame&, ui::Session&, const store::RegisterKey&)>;
    using ChainStep = std::function<void(QuestionnaireFrame&, ui::Session&)>;

    // Entries of the main screen. Each runs after the main screen did its own part (the
    // origin mark, the access code of the import).
    MainEntry generateDiskette; // lblGerco: choose a register, export it to a folder
    MainEntry printMemorial;    // lblImprimir: choose a register and print its memorial
    MainEntry agencies;         // lblAgenc: the regional agencies' panel
    MainEntry suggestions;      // lblSugestoes: the suggestions' panel
    MainEntry importMemorial;   // lblImprt, after the access code was accepted

    // Buttons of the register list, for the selected register; gOrigemSelecao is already 1.
    ListAction exportRegister; // cmdExprt: asks where, exports, offers the mail
    ListAction printRegister;  // cmdImprm

    // Continuar of the register list, after the session holds the chosen register: shows the
    // first screen of the questionnaire's chain in the frame.
    ChainStep continueChain;

    // Opens a document with the desktop's viewer; false when nothing could open it.
    std::function<bool(const QUrl&)> openUrl;
};

// The hooks in use.
Hooks& hooks();

// Puts every hook back to its first state (tests).
void resetHooks();

// The message of a function that this version does not have yet.
void reportNotAvailable(const QString& function);

} // namespace shell
