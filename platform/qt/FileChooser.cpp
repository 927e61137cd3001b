#include "platform/qt/FileChooser.h"

#include <QDialogButtonBox>

FileChooser::FileChooser(QWidget* parent, bool isSave) : QFileDialog(parent) {
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite |
               QFileDialog::DontUseCustomDirectoryIcons);
    setAcceptMode(isSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    setFileMode(QFileDialog::AnyFile);
    field_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    auto* buttons = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    accept_ = buttons->button(isSave ? QDialogButtonBox::Save : QDialogButtonBox::Open);
    reject_ = buttons->button(QDialogButtonBox::Cancel);
}

void FileChooser::accept() {
    if (accepting) accepting();
}

void FileChooser::reject() {
    if (rejecting) rejecting();
}
