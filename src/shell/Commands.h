#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

class QObject;

namespace velmarin {

/// Who carries out the commands of the menu bar. The command `X` of an object is its slot `X_Action(int index)`; the
/// first of the objects that has it runs it. The objects must outlive this.
class Commands {
  public:
    Commands(std::initializer_list<QObject*> objects) : objects_(objects) {}

    bool handles(std::string_view command) const;
    /// False if no object handles the command.
    bool run(std::string_view command, int index) const;
    /// A copy that asks `first` before the others.
    Commands withFirst(QObject& first) const;

  private:
    std::vector<QObject*> objects_;
};

} // namespace velmarin
