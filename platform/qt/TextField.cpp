#include "platform/qt/DialogUnits.h"
#include "platform/qt/EditField.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace {

// Inside the end of a line is one character, and outside two.
QString withOuterEnds(QString text) { return text.replace(u'\n', QLatin1StringView("\r\n")); }

QString withInnerEnds(QString text) {
    return text.replace(QLatin1StringView("\r\n"), QLatin1StringView("\n")).replace(u'\r', u'\n');
}

class TextField : public QPlainTextEdit, public EditField {
public:
    TextField(const EditTraits& traits, QWidget* parent) : QPlainTextEdit(parent) {
        setTabChangesFocus(true);
        if (!traits.hasFrame) setFrameShape(QFrame::NoFrame);
        setLineWrapMode(traits.wraps ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
        setVerticalScrollBarPolicy(traits.hasScrollBar ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        QTextOption option = document()->defaultTextOption();
        option.setAlignment(traits.alignment);
        document()->setDefaultTextOption(option);
        followFont();
        seen_ = document()->revision();
        connect(this, &QPlainTextEdit::textChanged, this, [this] { report(); });
    }

    QString content() const override { return withOuterEnds(toPlainText()); }
    void setContent(const QString& text) override {
        QSignalBlocker quiet(this);
        document()->setPlainText(withInnerEnds(text)); // the field's own would lay the text out to show its cursor
        document()->setModified(false);
        seen_ = document()->revision();
        moveCursor(QTextCursor::Start);
    }
    Span selection() const override {
        QTextCursor cursor = textCursor();
        return {outer(cursor.selectionStart()), outer(cursor.selectionEnd())};
    }
    void select(Span span) override {
        QTextCursor cursor = textCursor();
        cursor.setPosition(inner(span.begin));
        cursor.setPosition(inner(span.end), QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
    void replaceSelection(const QString& text) override {
        QString fitting = fit(withInnerEnds(text));
        if (fitting.size() < withInnerEnds(text).size()) overflow();
        if (!fitting.isEmpty() || textCursor().hasSelection()) insertPlainText(fitting);
    }
    void eraseBack() override { textCursor().deletePreviousChar(); }
    void showCaret() override { ensureCursorVisible(); }

    int limit() const override { return limit_; }
    void setLimit(int limit) override { limit_ = limit; }
    bool isReadOnly() const override { return QPlainTextEdit::isReadOnly(); }
    void setReadOnly(bool isReadOnly) override { QPlainTextEdit::setReadOnly(isReadOnly); }
    bool isModified() const override { return document()->isModified(); }
    void setModified(bool isModified) override { document()->setModified(isModified); }

    void cut() override { QPlainTextEdit::cut(); }
    void copy() override { QPlainTextEdit::copy(); }
    void paste() override { QPlainTextEdit::paste(); }
    bool canUndo() const override { return document()->isUndoAvailable(); }
    void undo() override { QPlainTextEdit::undo(); }
    int lineCount() const override { return document()->lineCount(); }

protected:
    void changeEvent(QEvent* event) override {
        QPlainTextEdit::changeEvent(event);
        if (event->type() == QEvent::FontChange) followFont();
    }
    void insertFromMimeData(const QMimeData* source) override {
        if (source->hasText()) replaceSelection(source->text());
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (isTyping(*event) && room() <= 0) {
            overflow();
            event->accept();
        } else {
            QPlainTextEdit::keyPressEvent(event);
        }
    }

private:
    // As far apart as in every field of the kind.
    void followFont() {
        constexpr int tabUnits = 32;
        setTabStopDistance(DialogUnits(font()).across(tabUnits));
    }

    static bool isTyping(const QKeyEvent& event) {
        bool isEnd = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
        return isEnd || (!event.text().isEmpty() && event.text().at(0).isPrint());
    }

    void report() {
        // Fonts and colours change the document, too, but not its revision.
        if (document()->revision() == seen_) return;
        seen_ = document()->revision();
        if (edited) edited();
    }
    void overflow() const {
        if (overflowed) overflowed();
    }

    // What may still be entered in the place of the selection, in outer characters.
    int room() const {
        Span selected = selection();
        return limit_ - (outer(document()->characterCount() - 1) - (selected.end - selected.begin));
    }
    QString fit(const QString& text) const {
        int left = room();
        qsizetype count = 0;
        while (count < text.size() && (left -= text[count] == u'\n' ? 2 : 1) >= 0)
            ++count;
        return text.first(count);
    }

    int outer(int position) const { return position + document()->findBlock(position).blockNumber(); }
    // Each line before it makes one character less; a position between the two of a line's end counts as before it.
    int inner(int position) const {
        int wanted = std::clamp(position, 0, outer(document()->characterCount() - 1));
        QTextBlock block = document()->begin();
        while (block.next().isValid() && block.next().position() + block.next().blockNumber() <= wanted)
            block = block.next();
        int last = block.position() + block.length() - 1;
        return std::min(wanted - block.blockNumber(), last);
    }

    int limit_ = usualLimit;
    int seen_ = 0;
};

} // namespace

std::unique_ptr<QWidget> makeTextField(const EditTraits& traits, QWidget* parent) {
    return std::make_unique<TextField>(traits, parent);
}
