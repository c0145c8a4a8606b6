#pragma once

#include <QTextCharFormat>

#include <functional>

class QFont;
class QWidget;

namespace velmarin {

/// A new font family or a new font size.
struct FontChange {
    std::function<void(QFont&)> applyTo; ///< changes the font of a whole control
    QTextCharFormat format;              ///< merged into the format of selected text
};

/// Applies a change to `target`, depending on the first of these kinds that it is. Any other control is not changed.
///
///     pop-up menu    QComboBox                              the control
///     list box       QAbstractItemView                      the control
///     edit field     QTextEdit limited to one block of text    the selection if `styled`, else the control
///     text area      any other QTextEdit                    the control, then the selection; if nothing is selected,
///                                                           all of the text, which stays selected
///     text field     QLineEdit                              the control
///     text edit      QPlainTextEdit                         the control
///     static text    QLabel                                 the control
///     bevel button   BevelButton                            the control
///
/// The first visible line of a text stays the first visible one.
void applyFontChange(QWidget* target, const FontChange& change, bool styled);

} // namespace velmarin
