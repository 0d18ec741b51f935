#pragma once

#include <QDialog>
#include <vector>

#include "reports/pages/filtros.h"

class QLineEdit;
class QTreeWidget;

namespace desktop {

/// The filters of a report, each with its values to be ticked; without a tick in one, all of it passes.
class FilterDialog : public QDialog {
  Q_OBJECT

 public:
  FilterDialog(const std::vector<reports::Filtro>& filters, const reports::Escolhidos& chosen,
               QWidget* parent);

  reports::Escolhidos Chosen() const;
  QTreeWidget& tree() const { return *tree_; }

 private:
  void Fill(const std::vector<reports::Filtro>& filters, const reports::Escolhidos& chosen);
  void Search(const QString& text);
  void Clear();

  QLineEdit* search_;
  QTreeWidget* tree_;
};

}  // namespace desktop
