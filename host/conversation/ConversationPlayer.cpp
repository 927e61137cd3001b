#include "host/conversation/ConversationPlayer.h"

#include "host/ExitCode.h"
#include "host/conversation/ControlReader.h"
#include "host/conversation/MessageBoxWindow.h"
#include "host/conversation/PlayFailure.h"
#include "host/conversation/controlActs.h"
#include "host/conversation/expectations.h"
#include "host/conversation/showWindow.h"
#include "host/conversation/textPattern.h"
#include "host/conversation/windowTree.h"
#include "host/output.h"
#include "jtcore/Services/formatMessage.h"
#include "platform/controls.h"
#include "platform/property_sheet.h"
#include "platform/window_pictures.h"
#include "resources/ids.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace {

ConversationPlayer* player = nullptr;

constexpr UINT turnPause = 1; // milliseconds

// After a script has ended, what is open is cancelled window by window; more than this is a sheet that does not close.
constexpr unsigned mostCancels = 200;

HWND tabsOf(HWND top) {
    for (const HWND control : windowsIn(top))
        if (kindOf(control) == ControlKind::tabs) return control;
    return nullptr;
}

int indexOf(const ControlReader& reader, const std::u16string& name, std::u16string_view what) {
    const std::vector<std::u16string> items = reader.items();
    const auto found = std::find(items.begin(), items.end(), name);
    if (found != items.end()) return static_cast<int>(found - items.begin());
    std::u16string names;
    for (const std::u16string& item : items)
        names.append(names.empty() ? u"" : u", ").append(item);
    throw PlayFailure(formatMessage(u"there is no %s \"%s\"; there are: %s", what, name, names));
}

ControlReader navigationOf(HWND top) {
    const HWND list = findControl(top, {IDC_NAVIGATION_LIST, {}});
    if (!list || !IsWindowVisible(list)) throw PlayFailure(formatMessage(u"\"%s\" shows no overlays", textOf(top)));
    return ControlReader(list);
}

} // namespace

ConversationPlayer::ConversationPlayer(PlayScript script, std::u16string name, std::u16string pictureFolder)
    : script_(std::move(script)), name_(std::move(name)), pictureFolder_(std::move(pictureFolder)), limit_(name_) {
    player = this;
    startTimer();
}

ConversationPlayer::~ConversationPlayer() {
    stopTimer();
    player = nullptr;
}

void CALLBACK ConversationPlayer::onTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (player) player->takeTurn();
}

void ConversationPlayer::startTimer() { timer_ = SetTimer(nullptr, 0, turnPause, onTimer); }

void ConversationPlayer::stopTimer() {
    if (timer_ != 0) KillTimer(nullptr, timer_);
    timer_ = 0;
}

// A command may open a dialog and come back only when that is closed. Each turn therefore starts a timer of its own for
// the next one, which then comes inside the dialog's loop. A window that has just come is given a turn to be shown.
void ConversationPlayer::takeTurn() {
    stopTimer();
    startTimer();
    const HWND top = topmostWindow();
    const bool isSettled = top == std::exchange(lastTop_, top);
    if (!top || !isSettled) return;
    const PlayCommand* before = current_;
    try {
        takeTurnOn(top);
    } catch (const PlayFailure& failure) {
        fail(current_, failure.found());
    } catch (const std::exception& failure) {
        fail(current_, formatMessage(u"%S", failure.what()));
    }
    current_ = before;
}

void ConversationPlayer::takeTurnOn(HWND top) {
    if (!failed_ && limit_.isOver())
        fail(isOver() ? nullptr : &script_.commands[next_], u"the script has taken longer than it may");
    if (isMessageBox(top)) return meetMessageBox(top);
    if (isFileDialog(top) && meetFileDialog(top)) return;
    if (isOver())
        cancel(top);
    else
        runNext(top);
}

void ConversationPlayer::runNext(HWND top) {
    current_ = &script_.commands[next_++];
    run(*current_, top);
}

void ConversationPlayer::run(const PlayCommand& command, HWND top) {
    switch (command.verb) {
    case PlayVerb::overlay_:
        return switchOverlay(top, command.text());
    case PlayVerb::page_:
        return switchPage(top, command.text());
    case PlayVerb::answer_:
        if (isMessageBox(top)) return answerBox(top, command.choice);
        answers_.push_back(&command);
        return;
    case PlayVerb::file_:
        if (isFileDialog(top)) return answerFileDialog(top, command.texts.empty() ? u"" : command.text());
        files_.push_back(&command);
        return;
    case PlayVerb::shot_:
        return takePicture(top, command.text());
    case PlayVerb::show_:
        return print(showWindow(top));
    case PlayVerb::expect_:
        return expect(top, command);
    case PlayVerb::apply_:
        return pressButton(top, ID_APPLY_NOW);
    case PlayVerb::ok_:
        return pressButton(top, IDOK);
    case PlayVerb::cancel_:
        return pressButton(top, IDCANCEL);
    case PlayVerb::close_:
        SendMessageW(top, WM_CLOSE, 0, 0);
        return;
    case PlayVerb::timeout_:
        return limit_.set(std::chrono::seconds(command.numbers[0]));
    case PlayVerb::key_:
        if (command.control.isEmpty()) return pressKey(command.key);
        break;
    default:
        break;
    }
    const HWND control = findControl(top, command.control);
    if (!control)
        throw PlayFailure(formatMessage(u"there is no control %s in \"%s\"", describe(command.control), textOf(top)));
    actOn(control, command);
}

void ConversationPlayer::actOn(HWND control, const PlayCommand& command) {
    switch (command.verb) {
    case PlayVerb::focus_:
        return focusControl(control);
    case PlayVerb::type_:
        return typeText(control, command.text());
    case PlayVerb::choose_:
        return chooseItem(control, command.text());
    case PlayVerb::check_:
        return checkButton(control, command.choice);
    case PlayVerb::click_:
        return clickControl(control);
    case PlayVerb::slide_:
        return slideTo(control, command.numbers[0]);
    case PlayVerb::row_:
        return selectRows(control, command.numbers);
    case PlayVerb::doubleclick_:
        return doubleClickRow(control, command.numbers[0]);
    case PlayVerb::key_:
        focusControl(control);
        return pressKey(command.key);
    default:
        return;
    }
}

// The window is left as a person leaves it who wants nothing of it.
void ConversationPlayer::cancel(HWND top) {
    if (++cancels_ > mostCancels) {
        fail(nullptr, formatMessage(u"\"%s\" does not close", textOf(top)));
        std::_Exit(exitNotValid);
    }
    const HWND button = GetDlgItem(top, IDCANCEL);
    if (button && IsWindowEnabled(button))
        SendMessageW(button, BM_CLICK, 0, 0);
    else
        SendMessageW(top, WM_CLOSE, 0, 0);
}

void ConversationPlayer::meetMessageBox(HWND box) {
    if (lastMessage_.box != box) lastMessage_ = {box, textOf(box), messageOf(box)};
    if (failed_) return dismissMessageBox(box);
    if (!answers_.empty()) {
        current_ = answers_.front();
        answers_.pop_front();
        return answerBox(box, current_->choice);
    }
    if (isNextAboutBoxes()) return runNext(box);
    fail(current_, formatMessage(u"a message box that nobody expected, \"%s\": \"%s\"", lastMessage_.title,
                                 foldBlanks(lastMessage_.text)));
    dismissMessageBox(box);
}

// With a message box before them, people look at it and answer it; nothing else.
bool ConversationPlayer::isNextAboutBoxes() const {
    if (isOver()) return false;
    const PlayCommand& command = script_.commands[next_];
    const bool isLook = command.verb == PlayVerb::expect_ &&
                        (command.aspect == PlayAspect::message_ || command.aspect == PlayAspect::title_);
    return isLook || command.verb == PlayVerb::answer_ || command.verb == PlayVerb::shot_ ||
           command.verb == PlayVerb::show_ || command.verb == PlayVerb::key_ || command.verb == PlayVerb::close_;
}

void ConversationPlayer::answerBox(HWND box, int result) {
    if (!answerMessageBox(box, result))
        throw PlayFailure(formatMessage(u"the message box has no such button: \"%s\"", foldBlanks(messageOf(box))));
}

bool ConversationPlayer::meetFileDialog(HWND dialog) {
    if (failed_ || files_.empty()) return false;
    current_ = files_.front();
    files_.pop_front();
    answerFileDialog(dialog, current_->texts.empty() ? u"" : current_->text());
    return true;
}

void ConversationPlayer::switchOverlay(HWND top, const std::u16string& name) {
    const int row = indexOf(navigationOf(top), name, u"overlay");
    selectRows(findControl(top, {IDC_NAVIGATION_LIST, {}}), {row});
}

void ConversationPlayer::switchPage(HWND top, const std::u16string& name) {
    const HWND tabs = tabsOf(top);
    if (!tabs) throw PlayFailure(formatMessage(u"\"%s\" has no pages", textOf(top)));
    const int index = indexOf(ControlReader(tabs), name, u"page");
    SendMessageW(top, PSM_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void ConversationPlayer::pressButton(HWND top, int id) {
    const HWND button = GetDlgItem(top, id);
    if (!button) throw PlayFailure(formatMessage(u"\"%s\" has no such button", textOf(top)));
    clickControl(button);
}

void ConversationPlayer::takePicture(HWND top, const std::u16string& name) {
    const std::u16string path = (std::filesystem::path(pictureFolder_) / name).u16string();
    if (!SaveWindowPicture(top, toWide(path)))
        throw PlayFailure(formatMessage(u"the picture \"%s\" could not be saved (error %u)", path, GetLastError()));
}

void ConversationPlayer::expect(HWND top, const PlayCommand& command) {
    switch (command.aspect) {
    case PlayAspect::title_:
        return expectText(command.text(), textOf(top));
    case PlayAspect::message_:
        if (!lastMessage_.box) throw PlayFailure(u"no message box has come");
        return expectText(foldBlanks(command.text()), foldBlanks(lastMessage_.text));
    case PlayAspect::overlay_:
        return expectText(command.text(), navigationOf(top).value());
    case PlayAspect::page_:
        return expectText(command.text(), tabsOf(top) ? ControlReader(tabsOf(top)).value() : std::u16string());
    case PlayAspect::closed_:
        throw PlayFailure(formatMessage(u"\"%s\" is open", textOf(top)));
    default:
        return expectOfControl(top, command);
    }
}

bool ConversationPlayer::finish() {
    stopTimer();
    if (!failed_) checkWhatIsLeft();
    return !failed_;
}

// When everything is closed there is only that to be expected, and what the last message was.
void ConversationPlayer::checkWhatIsLeft() {
    for (; !isOver(); ++next_) {
        const PlayCommand& command = script_.commands[next_];
        if (command.verb == PlayVerb::expect_ && command.aspect == PlayAspect::closed_) continue;
        if (command.verb != PlayVerb::expect_ || command.aspect != PlayAspect::message_)
            return fail(&command, u"everything is closed");
        try {
            expect(nullptr, command);
        } catch (const PlayFailure& failure) {
            return fail(&command, failure.found());
        }
    }
    if (!answers_.empty()) return fail(answers_.front(), u"no message box came that this could answer");
    if (!files_.empty()) fail(files_.front(), u"no file dialog came that this could answer");
}

void ConversationPlayer::fail(const PlayCommand* command, const std::u16string& found) {
    if (failed_) return;
    failed_ = true;
    if (!command) return printError(formatMessage(u"%s: %s", name_, found));
    printError(formatMessage(u"%s:%u: %s\n  found: %s", name_, command->line, foldBlanks(command->source), found));
}
