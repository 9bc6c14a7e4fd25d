#include "shell/ExportPanel.h"

#include "ui/MailSettingsDialog.h"
#include "ui/PrintMemorial.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

namespace shell {

namespace {
const QString kDirectoryKey = QStringLiteral("export/directory");
}

ui::ExportRunOutcome exportRegister(store::Database& db, const store::RegisterKey& key,
                                    const QString& directory,
                                    const std::function<void(int, int)>& progress,
                                    const std::function<void()>& written) {
    ui::ExportRunOptions options;
    options.progress = progress;
    options.written = written;
    options.printProtocol = [&db, directory](const exchange::ProtocolRequest& request) {
        // The receipt goes beside the joined file; printProtocol reports its own failure.
        const QString pdf =
            QDir(directory).filePath(QStringLiteral("PROTOCOLO_%1.PDF").arg(request.key.code()));
        ui::printProtocol(db, request.key, request.moment, pdf, request.resent);
        return std::optional<QString>();
    };
    const ui::ExportRunOutcome outcome = ui::runExportWithQuestions(db, key, directory, options);
    if (outcome.exported)
        rememberExportDirectory(directory);
    return outcome;
}

QString lastExportDirectory() {
    return QSettings().value(kDirectoryKey, QDir::homePath()).toString();
}

void rememberExportDirectory(const QString& directory) {
    QSettings().setValue(kDirectoryKey, directory);
}

ExportPanel::ExportPanel(store::Database& db, QWidget* parent)
    : QWidget(parent)
    , m_db(db)
    , m_directory(new QLineEdit(this))
    , m_files(new QListWidget(this))
    , m_bar(new QProgressBar(this))
    , m_wait(new QLabel(ui::kExportWaitText, this))
    , m_export(new QPushButton(QStringLiteral("Exportar"), this))
    , m_back(new QPushButton(QStringLiteral("Tela Principal"), this)) {
    setObjectName(QStringLiteral("Picture6"));
    auto* title = new QLabel(QStringLiteral("Exportação de Dados"), this);
    title->setObjectName(QStringLiteral("Label10"));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    m_directory->setObjectName(QStringLiteral("Dir1"));
    m_files->setObjectName(QStringLiteral("File1"));
    m_bar->setObjectName(QStringLiteral("pBar1"));
    m_wait->setObjectName(QStringLiteral("lblAvisoExportacao"));
    m_wait->hide();
    m_export->setObjectName(QStringLiteral("cmdExportar"));
    m_back->setObjectName(QStringLiteral("Command3"));
    auto* browse = new QPushButton(QStringLiteral("Procurar..."), this);
    browse->setObjectName(QStringLiteral("cmdProcurarDir"));

    auto* folder = new QHBoxLayout;
    folder->addWidget(new QLabel(QStringLiteral("Pasta de destino:"), this));
    folder->addWidget(m_directory, 1);
    folder->addWidget(browse);
    // The mail server and the agency's mailbox, asked at the first send, can be changed here.
    auto* mail = new QPushButton(QStringLiteral("Correio eletrônico..."), this);
    mail->setObjectName(QStringLiteral("cmdCorreio"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(mail);
    buttons->addStretch();
    buttons->addWidget(m_export);
    buttons->addWidget(m_back);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addLayout(folder);
    layout->addWidget(m_files, 1);
    layout->addWidget(m_wait);
    layout->addWidget(m_bar);
    layout->addLayout(buttons);

    connect(browse, &QPushButton::clicked, this, &ExportPanel::chooseDirectory);
    connect(m_directory, &QLineEdit::editingFinished, this, &ExportPanel::listFiles);
    connect(m_export, &QPushButton::clicked, this, &ExportPanel::exportNow);
    connect(m_back, &QPushButton::clicked, this, &ExportPanel::backToMainScreen);
    connect(mail, &QPushButton::clicked, this, [this] { ui::MailSettingsDialog::edit(this); });
}

void ExportPanel::openFor(const store::RegisterKey& key) {
    m_key = key;
    setDirectory(lastExportDirectory());
    m_bar->setValue(0);
    m_export->setEnabled(true);
    m_back->setEnabled(true);
}

QString ExportPanel::directory() const {
    return m_directory->text().trimmed();
}

void ExportPanel::setDirectory(const QString& directory) {
    m_directory->setText(directory);
    listFiles();
}

void ExportPanel::chooseDirectory() {
    if (const std::optional<QString> chosen = ui::chooseExportDirectory(this, directory()))
        setDirectory(*chosen);
}

void ExportPanel::listFiles() {
    m_files->clear();
    m_files->addItems(QDir(directory())
                          .entryList({QStringLiteral("*.txt"), QStringLiteral("*.TXT")},
                                     QDir::Files, QDir::Name));
}

void ExportPanel::exportNow() {
    m_wait->show();
    m_export->setEnabled(false);
    exportRegister(
        m_db, m_key, directory(),
        [this](int step, int steps) {
            m_bar->setMaximum(steps);
            m_bar->setValue(step);
        },
        [this] { m_wait->hide(); });
    m_wait->hide();
    m_bar->setValue(0);
    m_export->setEnabled(true);
    listFiles();
}

} // namespace shell
