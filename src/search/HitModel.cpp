#include "search/HitModel.h"

#include "search/PageTabs.h"

namespace velmarin {

void HitModel::clearRows() {
    rows_.clear();
    display_->clearRows();
}

void HitModel::addRow(const std::string& text) {
    rows_.push_back(text);
    display_->addRow(text);
}

void HitModel::chooseFirstRow() {
    if (rows_.empty())
        return;
    display_->selectRow(0);
    LB_Change(0);
}

HitItem& HitModel::addHit(int dicIndex) {
    HitItem& hit = pHiteItems_.emplace_back();
    hit.DictionaryNumber = dicIndex;
    hit.DictionaryName = group_.dictionary(dicIndex)->name;
    return hit;
}

void HitModel::LB_Change(int row) {
    showInfo("");
    if (row >= 0 && row < static_cast<int>(pHiteItems_.size()))
        show(HitItem(pHiteItems_[static_cast<std::size_t>(row)]));
}

void HitModel::show(const HitItem& hit) {
    PageTab& target = tabs_.tab(0);
    target.setJumpRows({});
    target.describe({}, {}, {});
    target.setErrata({});
    tabs_.setListMode_CurrentDicNum(hit.DictionaryNumber);
    tabs_.setCaption(0, hit.DictionaryName);
    const std::shared_ptr<DictionaryItem> item = group_.dictionary(hit.DictionaryNumber);
    const PageOutcome outcome = target.load(item->ImageFolder.Child(hit.ImageName), target.fit());
    // A word that sorts before the first entry has no page, so no file is at fault.
    const std::string problem = hit.ImageName.empty() ? std::string() : outcome.problem;
    if (!outcome.shown) {
        showInfo("We cant finde the picture. This dictionary has some probleme: " + hit.DictionaryName,
                 problem.empty() ? problem : hit.ImageName + ": " + problem);
        target.dropPage();
    }
    target.refresh();
    tabs_.mMakeBVjump(hit.DictionaryNumber);
    target.setJumpValue(item->ImageDictionary.value(hit.ImageName));
    target.describe(hit.DictionaryName, target.titleOf(*item, hit.ImageName), problem);
    target.setErrata(hit.PageImageName);
}

} // namespace velmarin
