#include "side/TextArea.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace velmarin {
namespace {

/// What a clipboard offers.
struct OfferCase {
    const char* name;
    void (*fill)(QMimeData&);
    const char* text; ///< of "a|b" afterwards, with the bar selected before
};

class Pasting : public testing::TestWithParam<OfferCase> {};

TEST_P(Pasting, TakesPlainTextAlone) {
    auto offer = std::make_unique<QMimeData>();
    GetParam().fill(*offer);
    QApplication::clipboard()->setMimeData(offer.release());
    TextArea area;
    area.setWholeText("a|b");
    area.select(1, 1);
    QTest::keyClick(&area, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(area.Text(), GetParam().text);
    EXPECT_EQ(area.document()->find("big").charFormat().fontPointSize(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    TextArea, Pasting,
    testing::Values(OfferCase{"Nothing", [](QMimeData&) {}, "a|b"},
                    OfferCase{"EmptyText", [](QMimeData& data) { data.setText(""); }, "a|b"},
                    OfferCase{"Picture", [](QMimeData& data) { data.setData("image/png", "x"); }, "a|b"},
                    OfferCase{"Text", [](QMimeData& data) { data.setText("one\r\ntwo"); }, "aone\ntwob"},
                    OfferCase{"StyledText",
                              [](QMimeData& data) {
                                  data.setHtml("<h1>big</h1>");
                                  data.setText("big");
                              },
                              "abigb"},
                    OfferCase{"Markdown",
                              [](QMimeData& data) {
                                  data.setData("text/markdown", "# x");
                                  data.setText("# big");
                              },
                              "a# bigb"}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace velmarin
