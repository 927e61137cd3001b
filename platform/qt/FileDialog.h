// The dialog in which a user chooses a file: Qt's own, as a window of this layer with the published ids, so that a
// program can fill in the name and press the button by messages.
#pragma once

#include "platform/qt/Dialog.h"
#include "platform/qt/FileChoice.h"

#include <QPointer>

class FileChooser;
class QFileInfo;

// The field with the name, in the published dialog a combo box.
inline constexpr WORD fileNameFieldId = 0x047C;

class FileDialog : public Dialog {
public:
    // REQUIRES: choice outlives the dialog, which puts the path into it.
    static FileDialog& make(FileChoice& choice, bool isSave, Window* owner);

    FileDialog(std::unique_ptr<FileChooser> chooser, WindowTraits traits, FileChoice& choice, bool isSave);

protected:
    LRESULT answerByDefault(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void fill();
    void adoptControls();
    QString typedPath() const;
    void accept();
    bool isAllowed(const QString& path);
    // The texts have the place of the file's name as %1.
    bool refuse(const QFileInfo& file, const char* why);
    bool ask(const QFileInfo& file, const char* question);
    int showBox(const QFileInfo& file, const char* text, UINT type);

    FileChooser& chooser_;
    FileChoice& choice_;
    const bool isSave_;
};
