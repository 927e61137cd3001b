// What the windows of a dialog tell it, written down step by step. Built from published names alone, so that the same
// scenes run on any window layer and their records can be compared.
#pragma once

#include "platform/windows.h"
#include "tests/memoryDialog.h"

#include <functional>
#include <string>
#include <vector>

namespace reference {

struct Step {
    std::string title;
    std::function<void(const DialogHands&)> act;
};

// One dialog, and what is done in it one after the other.
struct Scene {
    std::string title;
    std::vector<DialogItem> items;
    std::function<void(const DialogHands&)> prepare; // while it begins
    std::function<std::string(const DialogHands&)> state;
    std::vector<Step> steps;
};

// Opens the dialog, does the steps and closes it. A block of lines for each step:
//     SCENE: STEP
//       what the dialog was told, a line each
//       = the state behind it
// Changes of rows that come one behind the other are told as one, row by row: into how many notifications a platform
// cuts them differs from one version to the next. A step ends when nothing has come for as long as `settleTime`, in
// milliseconds.
std::string record(const Scene& scene, UINT settleTime);

// A key as a person presses it.
void key(BYTE virtualKey, BYTE modifier = 0);
// The left button of the mouse at a place of the control.
void press(HWND control, POINT at);
void release(HWND control, POINT at);
void doubleClick(HWND control, POINT at);

// A scene of any kind, and what is told in it.
struct Recording {
    std::string title;
    std::function<std::string(UINT settleTime)> record;
};
std::vector<Recording> sheetRecordings();
std::vector<Scene> fieldScenes();
std::vector<Scene> listScenes();
std::vector<Scene> rangeScenes();
// All of them.
std::vector<Recording> recordings();

} // namespace reference
