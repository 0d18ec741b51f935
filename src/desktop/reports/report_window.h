#pragma once

#include <QDialog>

#include "desktop/database/workspace.h"
#include "reports/pages/resultado.h"

class QSettings;

namespace desktop {

class ReportPage;

/// A report in a window of its own: what a row of another one is made of.
class ReportWindow : public QDialog {
  Q_OBJECT

 public:
  ReportWindow(Workspace& workspace, QSettings& settings, const reports::MaisPerto& closer, QWidget* parent);
  ReportPage& page() const { return *page_; }

 private:
  ReportPage* page_;
};

}  // namespace desktop
