// Plays a conversation: acts on the topmost window of this thread as a person would, from a timer that runs in whatever
// loop of messages is running, so that modal dialogs are walked into and out of.
//
// Usage: construct, open the sheet (which returns when it is closed), finish(). A command that fails ends the script;
// everything open is then cancelled, as it is after the last command.
#pragma once

#include "host/conversation/PlayScript.h"
#include "host/conversation/TimeLimit.h"
#include "platform/windows.h"

#include <deque>
#include <string>

class ConversationPlayer {
public:
    // Begins at once. Pictures go to that folder. One player at a time.
    // REQUIRES: a script without errors.
    ConversationPlayer(PlayScript script, std::u16string name, std::u16string pictureFolder);
    ~ConversationPlayer();
    ConversationPlayer(const ConversationPlayer&) = delete;
    ConversationPlayer& operator=(const ConversationPlayer&) = delete;

    // Ends the playing. Returns whether everything was as expected; what was not is on the standard error.
    bool finish();

private:
    struct Message {
        HWND box = nullptr;
        std::u16string title;
        std::u16string text;
    };

    static void CALLBACK onTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
    void startTimer();
    void stopTimer();
    void takeTurn();
    void takeTurnOn(HWND top);
    void runNext(HWND top);
    void run(const PlayCommand& command, HWND top);
    void cancel(HWND top);

    void meetMessageBox(HWND box);
    bool meetFileDialog(HWND dialog);
    void answerBox(HWND box, int result);

    void switchOverlay(HWND top, const std::u16string& name);
    void switchPage(HWND top, const std::u16string& name);
    void pressButton(HWND top, int id);
    void takePicture(HWND top, const std::u16string& name);
    void expect(HWND top, const PlayCommand& command);
    void actOn(HWND control, const PlayCommand& command);

    bool isOver() const noexcept { return failed_ || next_ == script_.commands.size(); }
    bool isNextAboutBoxes() const;
    void checkWhatIsLeft();
    // A null command is the script as a whole. Only the first failure counts.
    void fail(const PlayCommand* command, const std::u16string& found);

    PlayScript script_;
    std::u16string name_;
    std::u16string pictureFolder_;
    std::size_t next_ = 0;
    const PlayCommand* current_ = nullptr;
    bool failed_ = false;
    UINT_PTR timer_ = 0;
    HWND lastTop_ = nullptr; // of the turn before
    unsigned cancels_ = 0;
    Message lastMessage_;
    std::deque<const PlayCommand*> answers_;
    std::deque<const PlayCommand*> files_;
    TimeLimit limit_;
};
