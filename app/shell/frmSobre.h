// The About window.
#pragma once

#include <QDialog>

#include "session/Session.h"

namespace velmora {

class frmSobre : public QDialog {
  Q_OBJECT

 public:
  explicit frmSobre(const Session& session, QWidget* parent = nullptr);

 private:
  void LayOut();
};

}  // namespace velmora
