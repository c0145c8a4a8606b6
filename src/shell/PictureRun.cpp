#include "shell/PictureRun.h"

#include "controls/PopupMenu.h"
#include "controls/QtText.h"
#include "search/QueryBar.h"
#include "shell/App.h"
#include "shell/GroupPicker.h"
#include "shell/MainWindow.h"

#include <QCoreApplication>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>

#include <iostream>

namespace velmarin {

namespace {

constexpr int kCouldNot = 2;

int fail(const std::string& why) {
    std::cerr << "velmarin: " << why << '\n';
    return kCouldNot;
}

int carryOut(MainWindow& window, const StartRequest& request) {
    if (!request.group.empty() && !window.groupPicker().pickNamed(request.group))
        return fail("there is no group called \"" + request.group + "\"");
    if (!request.word.empty()) {
        if (!window.queryBar().OKBT()->isEnabled())
            return fail("a word can only be searched in a group: name one with --group");
        window.queryBar().SearchEF()->setText(toQ(request.word));
        window.queryBar().OKBT_Action();
    }
    return 0;
}

} // namespace

void runStartRequest(App& app, const StartRequest& request) {
    if (app.MainWinList().empty())
        return;
    MainWindow& window = *app.MainWinList().front();
    const int status = carryOut(window, request);
    if (request.pictureFile.empty())
        return;
    if (status != 0) {
        QCoreApplication::exit(status);
        return;
    }
    // One turn of the event loop later everything that the search put off has been laid out and painted.
    QTimer::singleShot(0, &window, [&window, file = request.pictureFile] {
        const bool saved = window.grab().save(toQ(file));
        QCoreApplication::exit(saved ? 0 : fail("the picture could not be written: " + file));
    });
}

} // namespace velmarin
