#include "platform/qt/EditField.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>

namespace {

// The widget cuts a text to its own limit, the program's texts too; so that limit follows a text that is longer than
// what a user may enter.
class LineField : public QLineEdit, public EditField {
public:
    LineField(const EditTraits& traits, QWidget* parent) : QLineEdit(parent) {
        setFrame(traits.hasFrame);
        setAlignment(traits.alignment | Qt::AlignVCenter);
        if (traits.isPassword) setEchoMode(QLineEdit::Password);
        connect(this, &QLineEdit::textEdited, this, [this] { report(); });
        connect(this, &QLineEdit::inputRejected, this, [this] {
            if (overflowed && text().size() >= limit_) overflowed();
        });
    }

    QString content() const override { return text(); }
    void setContent(const QString& text) override {
        QSignalBlocker quiet(this);
        setMaxLength(noLimit);
        setText(text);
        QLineEdit::setModified(false);
        followLimit();
        setCursorPosition(0);
    }
    Span selection() const override {
        return hasSelectedText() ? Span{selectionStart(), selectionEnd()} : Span{cursorPosition(), cursorPosition()};
    }
    void select(Span span) override {
        if (span.isEmpty())
            setCursorPosition(span.end);
        else
            setSelection(span.begin, span.end - span.begin);
    }
    void replaceSelection(const QString& text) override {
        Span selected = selection();
        auto room = std::max(limit_ - (this->text().size() - (selected.end - selected.begin)), qsizetype{0});
        if (text.size() > room && overflowed) overflowed();
        insert(text.first(std::min(text.size(), room)));
    }
    void eraseBack() override { backspace(); }
    void showCaret() override { setCursorPosition(cursorPosition()); }

    int limit() const override { return limit_; }
    void setLimit(int limit) override {
        limit_ = limit;
        followLimit();
    }
    bool isReadOnly() const override { return QLineEdit::isReadOnly(); }
    void setReadOnly(bool isReadOnly) override { QLineEdit::setReadOnly(isReadOnly); }
    bool isModified() const override { return QLineEdit::isModified(); }
    void setModified(bool isModified) override { QLineEdit::setModified(isModified); }

    void cut() override { QLineEdit::cut(); }
    void copy() override { QLineEdit::copy(); }
    void paste() override { QLineEdit::paste(); }
    bool canUndo() const override { return isUndoAvailable(); }
    void undo() override { QLineEdit::undo(); }
    int lineCount() const override { return 1; }

private:
    void report() {
        if (maxLength() > limit_) followLimit();
        if (edited) edited();
    }

    // A change of its limit puts the widget's caret at the end and forgets what could be undone.
    void followLimit() {
        int wanted = std::max(limit_, static_cast<int>(text().size()));
        if (wanted == maxLength()) return;
        QSignalBlocker quiet(this);
        Span before = selection();
        bool wasModified = QLineEdit::isModified();
        setMaxLength(wanted);
        QLineEdit::setModified(wasModified);
        select(before);
    }

    int limit_ = usualLimit;
};

} // namespace

std::unique_ptr<QWidget> makeLineField(const EditTraits& traits, QWidget* parent) {
    return std::make_unique<LineField>(traits, parent);
}
