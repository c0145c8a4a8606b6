#include "platform/QtHost.h"

#include "platform/FolderDialog.h"
#include "platform/QtText.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>
#include <QUrl>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <utility>

#include <unistd.h>

namespace velmarin {

namespace {

constexpr std::chrono::milliseconds kPumpInterval{30};
constexpr qsizetype kShownCharacters = 2000;
constexpr qsizetype kShownLines = 24;
constexpr unsigned kSecondsToEnd = 2;

QString shownText(std::string_view text) {
    QString shown = toQ(text);
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    shown.replace(u'\r', u'\n');
    shown.replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter));
    return shown;
}

QString firstLines(const QString& text) {
    qsizetype end = 0;
    for (qsizetype line = 0; line < kShownLines; ++line) {
        end = text.indexOf(u'\n', end);
        if (end < 0)
            break;
        ++end;
    }
    const qsizetype length = std::min(end < 0 ? text.size() : end, kShownCharacters);
    return length == text.size() ? text : text.left(length).trimmed() + QChar(0x2026);
}

/// Prints the text of a box that is not shown.
void say(std::string_view text) {
    std::cerr << "velmarin: " << text << '\n';
}

QWidget* dialogParent() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

/// The button that closed a box. The box may die with its parent while it is up, which counts as closing it.
QMessageBox::StandardButton run(QMessageBox::Icon icon, std::string_view text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton escape, std::string_view details = {}) {
    const QString whole = shownText(text);
    const QString shown = firstLines(whole);
    QPointer<QMessageBox> box =
        new QMessageBox(icon, QGuiApplication::applicationDisplayName(), shown, buttons, dialogParent());
    // These texts contain names of files and dictionaries: nothing in them is markup.
    box->setTextFormat(Qt::PlainText);
    if (!details.empty())
        box->setDetailedText(shownText(details));
    else if (shown != whole)
        box->setDetailedText(whole);
    box->setEscapeButton(escape);
    const int result = box->exec();
    if (box.isNull())
        return escape;
    delete box;
    return static_cast<QMessageBox::StandardButton>(result);
}

} // namespace

QtHost::QtHost(Clock clock) : clock_(std::move(clock)) {}

void QtHost::MsgBox(std::string_view text) {
    if (ending_)
        return say(text);
    run(QMessageBox::Warning, text, QMessageBox::Ok, QMessageBox::Ok);
}

void QtHost::MsgBoxWithDetails(std::string_view text, std::string_view details) {
    if (ending_) {
        say(text);
        return say(details);
    }
    run(QMessageBox::Warning, text, QMessageBox::Ok, QMessageBox::Ok, details);
}

Host::Answer QtHost::askYesNo(std::string_view text) {
    if (ending_) {
        say(text);
        return Answer::No;
    }
    const auto button = run(QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    return button == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

bool QtHost::AsyncShiftKey() {
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

bool QtHost::AsyncCommandKey() {
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
}

bool QtHost::AsyncOptionKey() {
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::AltModifier);
}

std::filesystem::path QtHost::SelectFolder(std::string_view prompt, const std::filesystem::path& openAt,
                                           FolderChoice choice) {
    if (ending_)
        return {};
    // The dialog may be deleted with its parent while it is up, which counts as a cancel.
    const QPointer<FolderDialog> dialog =
        new FolderDialog(shownText(prompt), pathToQ(openAt.empty() ? lastFolder_ : openAt), choice, dialogParent());
    const QString chosen = dialog->choose();
    delete dialog;
    if (chosen.isEmpty())
        return {};
    std::filesystem::path folder = pathFromQ(chosen);
    std::error_code error;
    lastFolder_ = std::filesystem::exists(folder, error) ? folder : folder.parent_path();
    return folder;
}

std::filesystem::path QtHost::GetOpenFile(std::string_view prompt, const std::vector<std::string>& extensions) {
    if (ending_)
        return {};
    QStringList patterns;
    for (const std::string& extension : extensions)
        patterns << QLatin1String("*") + toQ(extension);
    // The user may want a file with another extension.
    const QString filter =
        patterns.isEmpty() ? QString()
                           : QLatin1String("Usual files (") + patterns.join(u' ') + QLatin1String(");;All files (*)");
    const QString chosen = QFileDialog::getOpenFileName(dialogParent(), toQ(prompt), pathToQ(lastFolder_), filter);
    if (chosen.isEmpty())
        return {};
    std::filesystem::path file = pathFromQ(chosen);
    lastFolder_ = file.parent_path();
    return file;
}

bool QtHost::Launch(const std::filesystem::path& item) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(item, error);
    if (error || !std::filesystem::exists(whole, error))
        return false;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(pathToQ(whole)));
}

void QtHost::endSoon() {
    ending_ = true;
    struct sigaction end {};
    end.sa_handler = [](int) { std::_Exit(EXIT_SUCCESS); };
    ::sigaction(SIGALRM, &end, nullptr);
    ::alarm(kSecondsToEnd);
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    for (QWidget* each : QApplication::topLevelWidgets())
        if (auto* dialog = qobject_cast<QDialog*>(each); dialog != nullptr && dialog->isVisible())
            dialog->reject();
}

void QtHost::Yield() {
    if (pumping_ || clock_() - lastPump_ < kPumpInterval)
        return;
    pumping_ = true;
    const auto done = [this](void*) {
        pumping_ = false;
        lastPump_ = clock_();
    };
    const std::unique_ptr<void, decltype(done)> guard(this, done);
    QCoreApplication::processEvents();
}

void UnwatchedHost::MsgBox(std::string_view text) {
    say(text);
}

void UnwatchedHost::MsgBoxWithDetails(std::string_view text, std::string_view details) {
    MsgBox(text);
    MsgBox(details);
}

Host::Answer UnwatchedHost::askYesNo(std::string_view text) {
    MsgBox(text);
    return Answer::No;
}

bool hasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (const char* value = std::getenv(name); value != nullptr && *value != '\0')
            return true;
    return false;
}

} // namespace velmarin
