// Dialogs that a test answers beforehand.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <utility>
#include <vector>

#include "app/widgets/Dialogs.h"

namespace velmora {

/// Takes its answers from the queues, and keeps what was shown. A question that no answer was
/// queued for fails the test; a message with OK alone needs none.
class ScriptedDialogs : public Dialogs {
 public:
  using Dialogs::Dialogs;

  std::deque<Answer> answers;
  std::deque<QString> files;
  std::vector<std::pair<Message, Buttons>> shown;
  std::vector<QString> details;  // one for each message shown
  std::vector<QString> filters;  // one for each file asked for
  std::vector<QString> offered;  // one for each file to be saved

  /// The text and title of the last message shown, in the session's language.
  std::string LastText() const {
    return Worded(shown.at(shown.size() - 1).first, session_.language);
  }
  std::string LastTitle() const {
    return shown.at(shown.size() - 1).first.title.In(session_.language);
  }

  Answer Show(QWidget*, const Message& message, Buttons buttons, const QString& detail) override {
    shown.emplace_back(message, buttons);
    details.push_back(detail);
    const bool queued = !answers.empty();
    if (buttons == Buttons::Ok && (!queued || answers.front() != Answer::Ok)) return Answer::Ok;
    if (queued) return Taken(answers);
    ADD_FAILURE() << "no answer to: " << Worded(message, session_.language);
    return buttons == Buttons::OkCancel ? Answer::Cancel : Answer::No;
  }
  QString OpenFile(QWidget*, const QString& filter) override { return File(filter); }
  QString SaveFile(QWidget*, const QString& filter, const QString&, const QString& name) override {
    offered.push_back(name);
    return File(filter);
  }

 private:
  template <typename Value>
  static Value Taken(std::deque<Value>& queue) {
    const Value value = queue.front();
    queue.pop_front();
    return value;
  }

  QString File(const QString& filter) {
    filters.push_back(filter);
    if (!files.empty()) return Taken(files);
    ADD_FAILURE() << "no file to choose for: " << filter.toStdString();
    return {};
  }
};

}  // namespace velmora
