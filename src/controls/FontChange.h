#pragma once

#include <QTextCharFormat>

#include <functional>

class QFont;
class QWidget;

namespace velmarin {

/// A font or a size, in the two ways in which a control takes it.
struct FontChange {
    std::function<void(QFont&)> base; ///< changes the font of a whole control
    QTextCharFormat selection;        ///< is laid over the selected text
};

/// Gives `target` the style in the way that suits the first of these kinds that it is; any other control stays as it
/// is.
///
///     pop-up menu    QComboBox                              the control
///     list box       QAbstractItemView                      the control
///     edit field     QTextEdit held to one block of text    the selection if `styled`, else the control
///     text area      any other QTextEdit                    the control, then the selection; if nothing is selected,
///                                                           all of the text, which stays selected
///     text field     QLineEdit                              the control
///     text edit      QPlainTextEdit                         the control
///     static text    QLabel                                 the control
///     bevel button   BevelButton                            the control
///
/// A text goes on showing the line that was the first visible one.
void applyFontChange(QWidget* target, const FontChange& style, bool styled);

} // namespace velmarin
