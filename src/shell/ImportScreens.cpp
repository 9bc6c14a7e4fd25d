#include "shell/ImportScreens.h"

#include "exchange/Importer.h"
#include "shell/MainWindow.h"
#include "store/Database.h"
#include "ui/BusyCursor.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"

#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace shell {

namespace {

// Twips of the original layout, at 15 to the pixel.
constexpr int kTwipsPerPixel = 15;

QString lastImportDirectory;

} // namespace

ImportProgress::ImportProgress(QWidget* parent)
    : QDialog(parent)
    , m_bar(new QProgressBar(this)) {
    setObjectName(QStringLiteral("frmImportacaoBar"));
    setWindowTitle(QStringLiteral("Importando Dados..."));
    setModal(true);
    m_bar->setObjectName(QStringLiteral("pBar1"));
    m_bar->setRange(0, exchange::Importer::sectionSteps());
    m_bar->setValue(0);
    auto* label =
        new QLabel(QStringLiteral("Aguarde, a operação poderá levar alguns minutos"), this);
    label->setObjectName(QStringLiteral("Label1"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_bar);
    resize(420, 110);
}

void ImportProgress::setStep(int step, int steps) {
    m_bar->setMaximum(steps);
    m_bar->setValue(step);
    // The batch runs on this thread: let the bar show its step, but take no input meanwhile.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

ImportDirectoryDialog::ImportDirectoryDialog(const QString& start, QWidget* parent)
    : QDialog(parent)
    , m_drive(new QComboBox(this))
    , m_dirs(new QTreeView(this))
    , m_model(new QFileSystemModel(this))
    , m_files(new QListWidget(this)) {
    setObjectName(QStringLiteral("frmImportacaoDir"));
    setWindowTitle(QStringLiteral("Importação dos Dados"));
    m_drive->setObjectName(QStringLiteral("Drive1"));
    for (const QFileInfo& drive : QDir::drives())
        m_drive->addItem(drive.absoluteFilePath());
    m_model->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    m_model->setRootPath(QDir::rootPath());
    m_dirs->setObjectName(QStringLiteral("Dir1"));
    m_dirs->setModel(m_model);
    for (int c = 1; c < m_model->columnCount(); ++c)
        m_dirs->hideColumn(c);
    m_dirs->header()->hide();
    m_files->setObjectName(QStringLiteral("File1"));
    m_files->setSelectionMode(QAbstractItemView::NoSelection);

    auto* open = new QPushButton(QStringLiteral("&Abrir"), this);
    open->setObjectName(QStringLiteral("cmdProcr"));
    auto* close = new QPushButton(QStringLiteral("&Fechar"), this);
    close->setObjectName(QStringLiteral("cmdFechar"));

    auto* lists = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addWidget(m_drive);
    left->addWidget(m_dirs, 1);
    lists->addLayout(left, 3);
    lists->addWidget(m_files, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(open);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists, 1);
    layout->addLayout(buttons);
    resize(560, 380);

    connect(m_drive, &QComboBox::currentTextChanged, this, &ImportDirectoryDialog::setDirectory);
    connect(m_dirs->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) { setDirectory(m_model->filePath(index)); });
    connect(open, &QPushButton::clicked, this, &ImportDirectoryDialog::open);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    setDirectory(start.isEmpty() ? QDir::homePath() : start);
}

void ImportDirectoryDialog::setDirectory(const QString& directory) {
    if (directory == m_directory)
        return;
    m_directory = directory;
    const QModelIndex index = m_model->index(directory);
    if (index.isValid() && m_dirs->currentIndex() != index) {
        m_dirs->setCurrentIndex(index);
        m_dirs->scrollTo(index);
    }
    m_files->clear();
    m_files->addItems(exchange::Importer::batchFiles(directory));
}

int ImportDirectoryDialog::fileCount() const {
    return m_files->count();
}

void ImportDirectoryDialog::open() {
    const int files = fileCount();
    if (files == 0) {
        ui::dialogs().message(ui::kTitle, exchange::kChooseDirectoryText, ui::Icon::None);
        return;
    }
    emit chosen(m_directory, files);
    accept();
}

ImportScreen::ImportScreen(store::Database& db, QWidget* parent)
    : QDialog(parent)
    , m_db(db)
    , m_import(new QPushButton(QStringLiteral("Importar"), this))
    , m_existing(new QLineEdit(this))
    , m_imported(new QLineEdit(this))
    , m_backup(new QLabel(this)) {
    setObjectName(QStringLiteral("frmImportacao"));
    setWindowTitle(QStringLiteral("Cadastro das Empresas Selecionadas"));
    auto* find = new QPushButton(QStringLiteral("&Procurar TXTs"), this);
    find->setObjectName(QStringLiteral("cmdProcr"));
    m_import->setObjectName(QStringLiteral("cmdImprt"));
    auto* close = new QPushButton(QStringLiteral("&Fechar"), this);
    close->setObjectName(QStringLiteral("cmdFechr"));
    m_existing->setObjectName(QStringLiteral("txtTotalExis"));
    m_imported->setObjectName(QStringLiteral("txtTotalLidos"));
    for (QLineEdit* count : {m_existing, m_imported}) {
        count->setReadOnly(true);
        count->setAlignment(Qt::AlignRight);
        count->setMaximumWidth(90);
    }
    m_backup->setObjectName(QStringLiteral("lblCopia"));
    m_backup->setWordWrap(true);
    m_backup->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* counts = new QFormLayout;
    counts->addRow(QStringLiteral("Total de Arquivos Existentes no Diretório :"), m_existing);
    counts->addRow(QStringLiteral("Total de Arquivos Importados :"), m_imported);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(find);
    buttons->addWidget(m_import);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(counts);
    layout->addWidget(m_backup);
    layout->addStretch();
    layout->addLayout(buttons);
    resize(520, 220);

    connect(find, &QPushButton::clicked, this, &ImportScreen::chooseDirectory);
    connect(m_import, &QPushButton::clicked, this, &ImportScreen::importNow);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void ImportScreen::chooseDirectory() {
    ImportDirectoryDialog chooser(lastImportDirectory, this);
    connect(&chooser, &ImportDirectoryDialog::chosen, this, &ImportScreen::setBatch);
    chooser.exec();
}

void ImportScreen::setBatch(const QString& directory, int files) {
    m_directory = directory;
    lastImportDirectory = directory;
    m_existing->setText(QString::number(files));
    m_imported->setText(QStringLiteral("0"));
    m_import->setEnabled(true);
}

void ImportScreen::importNow() {
    if (m_directory.isEmpty()) {
        ui::dialogs().message(ui::kTitle, exchange::kNoDirectoryText, ui::Icon::Critical);
        return;
    }
    if (!ui::dialogs().ask(exchange::kContinueTitle, exchange::kContinueQuestion,
                           ui::Icon::Question, false))
        return;

    ui::BusyCursor busy;
    m_imported->setText(QStringLiteral("0"));
    exchange::Importer importer(m_db);
    QString backupPath;
    // The copy comes first: without it the database is not touched.
    if (!ui::runGuarded([&] { backupPath = importer.backup(); }))
        return;
    m_backup->setText(QStringLiteral("Cópia de segurança do banco anterior: ") + backupPath);

    ImportProgress bar(this);
    importer.setProgress([&bar](int step, int steps) { bar.setStep(step, steps); });
    importer.setRefusal([](const QString& message) {
        ui::restoreNormalCursor();
        ui::dialogs().message(ui::kTitle, message, ui::Icon::Critical);
        QApplication::setOverrideCursor(Qt::WaitCursor);
    });
    int imported = 0;
    try {
        importer.wipe();
        bar.show();
        for (const QString& name : exchange::Importer::batchFiles(m_directory)) {
            bar.setStep(0, exchange::Importer::sectionSteps());
            if (importer.importFile(m_directory, name) == exchange::Importer::FileOutcome::Imported)
                m_imported->setText(QString::number(++imported));
        }
    } catch (const exchange::Importer::Stopped& stopped) {
        ui::restoreNormalCursor();
        ui::dialogs().message(ui::kTitle, stopped.message(), ui::Icon::Critical);
        return;
    } catch (const store::Failure& failure) {
        ui::reportFailure(failure);
        return;
    }
    bar.hide();
    ui::restoreNormalCursor();
    ui::dialogs().message(exchange::kDoneTitle, exchange::kDoneText, ui::Icon::Information);
}

void openImport(MainWindow& window) {
    ImportScreen screen(window.database(), &window);
    screen.move(window.pos() + QPoint(2160, 1680) / kTwipsPerPixel);
    window.hide();
    screen.exec();
    window.show();
}

} // namespace shell
