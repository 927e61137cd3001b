// Qt's file dialog, which leaves it to another to judge what the user chose.
#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

#include <functional>

class FileChooser : public QFileDialog {
public:
    FileChooser(QWidget* parent, bool isSave);

    std::function<void()> accepting;
    std::function<void()> rejecting;

    QLineEdit& nameField() const { return *field_; }
    QPushButton& acceptButton() const { return *accept_; }
    QPushButton& rejectButton() const { return *reject_; }

    void reject() override;

protected:
    void accept() override;

private:
    QLineEdit* field_;
    QPushButton* accept_;
    QPushButton* reject_;
};
