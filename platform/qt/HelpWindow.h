// The help of a driver: pages of text in a window that stands beside the sheet and closes with it.
//
// WinHelpW is given the name of a file that never comes alone: beside JT37HELP.HLP lies the folder JT37HELP with a page
// <topic>.html for each topic and contents.html for all others.
#pragma once

#include "platform/qt/Dialog.h"

class QTextBrowser;

class HelpWindow : public Dialog {
public:
    // Empty when there is neither the topic nor the contents.
    static QString findPage(const QString& helpFile, ULONG_PTR topic);
    // The window that already stands beside the owner's, or a new one; brought to the front.
    static void show(Window& owner, const QString& page);
    static void closeBeside(Window& owner);

protected:
    LRESULT answerByDefault(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    explicit HelpWindow(Window& owner);
    static HelpWindow* beside(Window& owner);
    void layOut();
    void standBeside(const QRect& sheet);
    void open(const QString& page);
    void followLink();

    QTextBrowser* text_ = nullptr;
};
