#pragma once

#include "view/Decoders.h"

#include <QObject>

#include <condition_variable>
#include <deque>
#include <list>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace velmarin {

/// Decodes page pictures in a thread of its own, and keeps the last ones, so that stepping through pages never waits.
class PictureShelf : public QObject {
    Q_OBJECT
  public:
    explicit PictureShelf(QObject* parent = nullptr);
    ~PictureShelf() override;

    /// The picture of a file; nullptr until `ready` is emitted for it. Valid until the next event.
    const DecodedPicture* find(const FolderItem& file);
    /// The files to be decoded, the most urgent first. What was wanted before and is not begun is given up.
    void want(const std::vector<FolderItem>& files);
    /// Drops all pictures.
    void clear() { shelved_.clear(); }

  signals:
    void ready(const velmarin::FolderItem& file);

  private:
    struct Shelved {
        FolderItem file;
        DecodedPicture decoded;
    };
    void work();
    void shelve(Shelved shelved);

    std::list<Shelved> shelved_; ///< the last used first

    std::mutex mutex_; ///< guards what follows
    std::condition_variable wake_;
    std::deque<FolderItem> wanted_;
    bool ending_ = false;

    std::thread thread_;
};

} // namespace velmarin
