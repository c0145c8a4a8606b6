#pragma once

#include <QString>
#include <QWidget>

#include <optional>

namespace velmarin {

/// What a control is to the buttons that set fonts and sizes, in the order in which they ask.
enum class TextTarget {
    PopupMenu,   ///< a QComboBox
    Listbox,     ///< a QListView
    EditField,   ///< a QTextEdit that is no TextArea
    TextArea,    ///< a TextArea
    TextField,   ///< a QLineEdit
    TextEdit,    ///< a QPlainTextEdit
    StaticText,  ///< a QLabel
    BevelButton, ///< a BevelButton
    None,
};

TextTarget textTargetOf(const QWidget* widget);

/// A font or a size that is to be given to controls.
struct TextChange {
    std::optional<QString> family;
    std::optional<float> points;
};

/// Gives a control the change in the way of its kind: most of them as a whole; an EditField its selection instead where
/// `styled` is set; a TextArea as a whole and its selection, which becomes all of its text where nothing is selected.
void applyTo(QWidget* target, const TextChange& change, bool styled);

} // namespace velmarin
