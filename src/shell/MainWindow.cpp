#include "shell/MainWindow.h"

#include "shell/AgenciesPanel.h"
#include "shell/ExportPanel.h"
#include "shell/SuggestionsPanel.h"

#include "shell/Hooks.h"
#include "shell/Manual.h"
#include "shell/ObjectiveDialog.h"
#include "shell/QuestionnaireFrame.h"
#include "store/Database.h"
#include "ui/BusyCursor.h"
#include "ui/Dialogs.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace shell {

namespace {

// The entries' colours: a brown at rest, navy under the pointer.
const QColor kEntryColour(0x90, 0x30, 0x00);
const QColor kEntryHoverColour(0x00, 0x00, 0x80);

// The column of entries can be moved with the right button, but not into the text.
constexpr int kColumnMinimumX = 400;
constexpr int kColumnWidth = 250;
constexpr int kMargin = 20;

QLabel* paragraph(QWidget* parent, const char* name, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

// An entry of the main screen: a label that answers the pointer.
class EntryLabel : public QLabel {
public:
    EntryLabel(const QString& text, QWidget* parent)
        : QLabel(text, parent) {
        setMouseTracking(true);
        setCursor(Qt::PointingHandCursor);
        setColour(kEntryColour);
    }

    std::function<void()> onClick;
    std::function<void()> onDoubleClick;
    std::function<void()> onHover;

    void setColour(const QColor& colour) {
        QPalette p = palette();
        p.setColor(QPalette::WindowText, colour);
        setPalette(p);
    }
    QColor colour() const { return palette().color(QPalette::WindowText); }

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) &&
            onClick)
            onClick();
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && onDoubleClick)
            onDoubleClick();
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (onHover)
            onHover();
        event->accept();
    }
    void enterEvent(QEnterEvent* event) override {
        if (onHover)
            onHover();
        QLabel::enterEvent(event);
    }
};

MainWindow::MainWindow(store::Database& db, QWidget* parent)
    : QMainWindow(parent)
    , m_db(db) {
    setObjectName(QStringLiteral("F1_TelaPrincipal"));
    setWindowTitle(QStringLiteral("VOR - Caderno Vorel de Empreendimento"));
    build();
    resize(1000, 700);
    setMinimumSize(800, 600);

    // F1 opens the manual from every window of the program.
    auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
    help->setContext(Qt::ApplicationShortcut);
    connect(help, &QShortcut::activated, this, &MainWindow::manual);
}

MainWindow::~MainWindow() {
    delete m_frame;
}

void MainWindow::build() {
    m_central = new QWidget(this);
    m_central->setObjectName(QStringLiteral("background"));
    m_central->setMouseTracking(true);
    m_central->installEventFilter(this);
    m_central->setAutoFillBackground(true);
    QPalette background = m_central->palette();
    background.setColor(QPalette::Window, QColor(0xf7, 0xf5, 0xef));
    m_central->setPalette(background);
    setCentralWidget(m_central);

    // The text and the panels, on the left.
    m_left = new QWidget(m_central);
    m_left->setMouseTracking(true);
    m_left->installEventFilter(this);
    auto* left = new QVBoxLayout(m_left);
    left->setContentsMargins(0, 0, 0, 0);
    left->setSpacing(10);
    auto* title = paragraph(m_left, "Label7",
                            QStringLiteral("Postos e Sistemas Retalhistas de Combustíveis     "
                                           "Cadastro 2001"));
    QFont titleFont = title->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.35);
    titleFont.setBold(true);
    title->setFont(titleFont);
    title->setStyleSheet(QStringLiteral("color: #1f3f66;"));
    auto* heading =
        paragraph(m_left, "lblCabecalho",
                  QStringLiteral("Cadastramento de Postos e Sistemas Retalhistas de Combustíveis"));
    QFont headingFont = heading->font();
    headingFont.setPointSizeF(headingFont.pointSizeF() * 1.15);
    heading->setFont(headingFont);
    heading->setStyleSheet(QStringLiteral("color: #1f3f66;"));

    m_pages = new QStackedWidget(m_left);
    auto* text = new QWidget(m_pages);
    text->setObjectName(QStringLiteral("textoPrincipal"));
    text->setMouseTracking(true);
    text->installEventFilter(this);
    auto* textLayout = new QVBoxLayout(text);
    textLayout->setContentsMargins(0, 8, 0, 0);
    textLayout->setSpacing(12);
    textLayout->addWidget(paragraph(
        text, "Label6",
        QStringLiteral("A Resolução Conama nº 273, de 29 de novembro de 2000, publicada em 8 de "
                       "janeiro de 2001, determina que a localização, a construção, a "
                       "instalação, a modificação, a ampliação e a operação de postos "
                       "revendedores, postos de abastecimento, instalações de sistemas "
                       "retalhistas e postos flutuantes de combustíveis dependem de "
                       "licenciamento ambiental.")));
    textLayout->addWidget(paragraph(
        text, "Label3",
        QStringLiteral("Os empreendimentos que já estavam em operação na data da publicação "
                       "tiveram seis meses para se cadastrar junto à ZANTOR, apresentando a "
                       "caracterização do empreendimento que este programa reúne: o Caderno "
                       "Vorel de Empreendimento.")));
    textLayout->addWidget(paragraph(
        text, "Label5",
        QStringLiteral("Como se cadastrar: escolha \"Preenchimento do Memorial\", indique o "
                       "objetivo do preenchimento, inclua o empreendimento e percorra as telas "
                       "do questionário. Depois imprima o memorial em \"Impressão do "
                       "Memorial\" e gere o arquivo de dados em \"Geração do Disquete\".")));
    textLayout->addWidget(paragraph(
        text, "Label8",
        QStringLiteral("Entregue o memorial assinado e o arquivo de dados na agência ambiental "
                       "da ZANTOR que atende o município do empreendimento, ou envie o arquivo "
                       "pelo correio eletrônico ao final da exportação.")));
    textLayout->addWidget(paragraph(
        text, "Label9",
        QStringLiteral("Dúvidas sobre o preenchimento: consulte o \"Manual de Preenchimento\" "
                       "(tecla F1) ou a agência ambiental da ZANTOR mais próxima; os endereços "
                       "estão em \"Agências Ambientais\".")));
    textLayout->addStretch();
    m_pages->addWidget(text);
    for (Panel p : {Panel::Agencies, Panel::Suggestions, Panel::Chooser, Panel::Export}) {
        QWidget* w = buildPanel(p);
        m_panels[std::size_t(p)] = w;
        m_pages->addWidget(w);
    }
    left->addWidget(title);
    left->addWidget(heading);
    left->addWidget(m_pages, 1);

    // The column of entries, on the right.
    m_column = new QWidget(m_central);
    m_column->setObjectName(QStringLiteral("lbl1"));
    auto* column = new QVBoxLayout(m_column);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(14);
    const std::array<std::pair<const char*, QString>, 8> entries = {{
        {"lblPrenc", QStringLiteral("Preenchimento do Memorial")},
        {"lblManual", QStringLiteral("Manual de Preenchimento")},
        {"lblGerco", QStringLiteral("Geração do Disquete")},
        {"lblImprimir", QStringLiteral("Impressão do Memorial")},
        {"lblAgenc", QStringLiteral("Agências Ambientais")},
        {"lblSugestoes", QStringLiteral("Sugestões")},
        {"lblImprt", QStringLiteral("Importação do Memorial")},
        {"lblSair", QStringLiteral("Sair")},
    }};
    const std::array<void (MainWindow::*)(), 8> handlers = {
        &MainWindow::preencher, &MainWindow::manual,   &MainWindow::gerarDisquete,
        &MainWindow::imprimir,  &MainWindow::agencias, &MainWindow::sugestoes,
        &MainWindow::importar,  &MainWindow::sair};
    for (std::size_t i = 0; i < entries.size(); ++i) {
        auto* entry = new EntryLabel(entries[i].second, m_column);
        entry->setObjectName(QString::fromLatin1(entries[i].first));
        QFont f = entry->font();
        f.setPointSizeF(f.pointSizeF() * 1.25);
        f.setBold(true);
        entry->setFont(f);
        const auto handler = handlers[i];
        // The import is for the agency's staff: a double click, not a stray click, opens it.
        if (handler == &MainWindow::importar)
            entry->onDoubleClick = [this, handler] { (this->*handler)(); };
        else
            entry->onClick = [this, handler] { (this->*handler)(); };
        entry->onHover = [this, entry] { highlight(entry); };
        m_entries[i] = entry;
        column->addWidget(entry);
    }
    column->addSpacing(10);
    // The program's version has one source, the project's; the screen shows its first two parts.
    auto* version = paragraph(m_column, "Label18",
                              QStringLiteral("Versão ") +
                                  QStringLiteral(VOR_VERSION).section(QLatin1Char('.'), 0, 1));
    version->setStyleSheet(QStringLiteral("color: #555;"));
    column->addWidget(version);

    m_contact = paragraph(m_central, "Label11",
                          QStringLiteral("Dúvidas e sugestões sobre este programa: use a opção "
                                         "\"Sugestões\" ou procure a agência ambiental da "
                                         "ZANTOR da sua região."));
    m_contact->setStyleSheet(QStringLiteral("color: #555;"));
}

QWidget* MainWindow::buildPanel(Panel which) {
    switch (which) {
    case Panel::Agencies: {
        auto* panel = new AgenciesPanel(m_db, m_pages);
        connect(panel, &AgenciesPanel::backToMainScreen, this, &MainWindow::showText);
        return panel;
    }
    case Panel::Suggestions: {
        auto* panel = new SuggestionsPanel(m_db, m_pages);
        connect(panel, &SuggestionsPanel::backToMainScreen, this, &MainWindow::showText);
        return panel;
    }
    case Panel::Chooser: {
        auto* panel = new RegisterChooser(m_db, m_pages);
        connect(panel, &RegisterChooser::backToMainScreen, this, &MainWindow::showText);
        connect(
            panel, &RegisterChooser::chosen, this,
            [this](RegisterChooser::Purpose purpose, store::RegisterKey key) {
                if (purpose == RegisterChooser::Purpose::Export) {
                    static_cast<ExportPanel*>(this->panel(Panel::Export))->openFor(key);
                    showPanel(Panel::Export);
                } else {
                    static_cast<SuggestionsPanel*>(this->panel(Panel::Suggestions))->openFor(key);
                    showPanel(Panel::Suggestions);
                }
            });
        return panel;
    }
    case Panel::Export: {
        auto* panel = new ExportPanel(m_db, m_pages);
        connect(panel, &ExportPanel::backToMainScreen, this, &MainWindow::showText);
        return panel;
    }
    }
    return nullptr;
}

void MainWindow::chooseRegister(RegisterChooser::Purpose purpose) {
    auto* chooser = static_cast<RegisterChooser*>(panel(Panel::Chooser));
    if (chooser->open(purpose))
        showPanel(Panel::Chooser);
}

void MainWindow::openAgencies() {
    if (static_cast<AgenciesPanel*>(panel(Panel::Agencies))->open())
        showPanel(Panel::Agencies);
}

QWidget* MainWindow::panel(Panel which) const {
    return m_panels[std::size_t(which)];
}

void MainWindow::showPanel(Panel which) {
    QWidget* page = panel(which);
    m_pages->setCurrentWidget(page);
    // A panel that showed itself before it became the current page kept the size it had when
    // hidden; the stack sizes only the page it brings up, so it is sized here.
    page->setGeometry(m_pages->contentsRect());
}

void MainWindow::showText() {
    m_pages->setCurrentIndex(0);
}

void MainWindow::layoutColumn() {
    const int width = m_central->width();
    const int height = m_central->height();
    const int x =
        m_columnX >= 0 ? m_columnX : std::max(width - kColumnWidth - kMargin, kColumnMinimumX);
    m_column->setGeometry(x, kMargin + 8, kColumnWidth, m_column->sizeHint().height());
    const int contactY = m_column->geometry().bottom() + 16;
    m_contact->setGeometry(x + 7, contactY, kColumnWidth - 7,
                           m_contact->heightForWidth(kColumnWidth - 7));
    m_left->setGeometry(kMargin, kMargin, std::max(x - 2 * kMargin, 200), height - 2 * kMargin);
}

void MainWindow::highlight(EntryLabel* entry) {
    for (EntryLabel* e : m_entries)
        e->setColour(e == entry ? kEntryHoverColour : kEntryColour);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_central && event->type() == QEvent::Resize)
        layoutColumn();
    if (event->type() == QEvent::MouseMove &&
        (watched == m_central || watched == m_left || watched == m_pages->widget(0))) {
        auto* move = static_cast<QMouseEvent*>(event);
        highlight(nullptr);
        const int x = m_central->mapFromGlobal(move->globalPosition().toPoint()).x();
        if ((move->buttons() & Qt::RightButton) && x >= kColumnMinimumX) {
            m_columnX = x;
            layoutColumn();
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    static const QHash<QChar, void (MainWindow::*)()> keys = {
        {QLatin1Char('P'), &MainWindow::preencher},     {QLatin1Char('M'), &MainWindow::manual},
        {QLatin1Char('G'), &MainWindow::gerarDisquete}, {QLatin1Char('I'), &MainWindow::imprimir},
        {QLatin1Char('A'), &MainWindow::agencias},      {QLatin1Char('S'), &MainWindow::sugestoes},
        {QLatin1Char('T'), &MainWindow::importar},      {QLatin1Char('R'), &MainWindow::sair},
    };
    const QString text = event->text().toUpper();
    const bool plainKey = (event->modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
    if (text.size() == 1 && plainKey) {
        if (const auto handler = keys.value(text.at(0))) {
            (this->*handler)();
            return;
        }
    }
    QMainWindow::keyPressEvent(event);
}

void MainWindow::preencher() {
    // The questionnaire starts again from the register list: what a screen holds unsaved goes
    // only if the user says so.
    if (m_frame && !m_frame->mayLeaveScreens()) {
        m_frame->raise();
        m_frame->activateWindow();
        return;
    }
    ObjectiveDialog objective(m_db, m_session, this);
    objective.exec();
    ui::BusyCursor busy;
    if (!m_frame) {
        m_frame = new QuestionnaireFrame(m_db, m_session, this);
        m_frame->setWindowFlag(Qt::Window);
        connect(m_frame, &QObject::destroyed, this, [this] {
            raise();
            activateWindow();
        });
    }
    m_frame->showList();
    m_frame->show();
    m_frame->raise();
    m_frame->activateWindow();
}

void MainWindow::manual() {
    // Opened with whatever viewer the desktop has for HTML.
    const QString file = manualFile(QCoreApplication::applicationDirPath());
    if (file.isEmpty() || !hooks().openUrl(QUrl::fromLocalFile(file)))
        ui::dialogs().message(ui::kTitle,
                              QStringLiteral("Não foi possível abrir o Manual de Preenchimento."),
                              ui::Icon::Warning);
}

void MainWindow::gerarDisquete() {
    m_session.origemSelecao = 0;
    hooks().generateDiskette(*this, m_session);
}

void MainWindow::imprimir() {
    m_session.origemSelecao = 0;
    hooks().printMemorial(*this, m_session);
}

void MainWindow::agencias() {
    hooks().agencies(*this, m_session);
}

void MainWindow::sugestoes() {
    hooks().suggestions(*this, m_session);
}

void MainWindow::importar() {
    const std::optional<QString> code =
        ui::dialogs().input(QStringLiteral("VOR - Postos e Sistemas Retalhistas de Combustíveis"),
                            QStringLiteral("Digite a senha:"), true);
    // A wrong code is refused without a word: the entry is for the agency's staff.
    if (!code || code->toUpper() != QLatin1String("4QK"))
        return;
    showText();
    hooks().importMemorial(*this, m_session);
}

void MainWindow::sair() {
    if (m_frame)
        m_frame->close();
    close();
    QCoreApplication::quit();
}

} // namespace shell
