#pragma once
#include "dialogs/SelectObjectsDlg.h"

// "Delete lines by type". The types are the names of the line studies.
class SelectLsDlg : public CSelectObjectsDlg {
    Q_OBJECT

public:
    explicit SelectLsDlg(QWidget *parent = nullptr);

protected:
    void collect(CRGraphWidget *widget, CRGraphLayer *layer, QStringList &texts, QStringList &types) override;
};
