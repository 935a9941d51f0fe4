#pragma once
#include "dialogs/SelectObjectsDlg.h"

// "Delete indicators by type". The types are the names of the indicators.
class SelectSymDlg : public CSelectObjectsDlg {
    Q_OBJECT

public:
    explicit SelectSymDlg(QWidget *parent = nullptr);

protected:
    void collect(CRGraphWidget *widget, CRGraphLayer *layer, QStringList &texts, QStringList &types) override;
};
