#pragma once

#include "charset/charset_policy.h"
#include "model/network_map.h"

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tessaview {

/// "Database export": asks for the file of a new database and exports the model into it.
class CDatabaseExportDlg : public QDialog {
    Q_OBJECT

public:
    /// The model must outlive this and stay as it is meanwhile. Names are read as the policy says.
    CDatabaseExportDlg(QWidget* parent, const NetworkMap& model, CharsetPolicy charsets = {});

protected:
    /// Lets the user choose the file to save to, starting from `path`; empty for none.
    virtual QString chooseFile(const QString& path);

private:
    void browse();
    bool isAnotherWanted(const QString& path);
    void exportModel();

    const NetworkMap& model_;
    CharsetPolicy charsets_;
    QString path_;
    QLineEdit* edit_;
    QPushButton* browseButton_;
    QPushButton* exportButton_;
    QPushButton* cancelButton_;
    QLabel* outcome_;
};

/// Runs the dialog; returns when it is closed.
void runDatabaseExport(QWidget* parent, const NetworkMap& model, const CharsetPolicy& charsets);

} // namespace tessaview
