#pragma once

#include "toolkit/controls.h"
#include "toolkit/services.h"
#include "toolkit/shapes.h"

#include <QWidget>

#include <initializer_list>
#include <memory>
#include <vector>

class QCheckBox;
class QGroupBox;
class QPlainTextEdit;

namespace toolkit {

class ChoiceList;
class TextBox;

enum class Border { None, FixedSingle, Sizable };
enum class Placement { ScreenCentre, WindowDefault };

struct FormSettings
{
    QString name; ///< the screen's name, also its objectName
    QString caption = {};
    double width = 0; ///< of the client area, in twips
    double height = 0;
    Border border = Border::None;
    Placement placement = Placement::ScreenCentre;
    std::optional<QColor> background = {}; ///< the system's if there is none
};

/// How a control looks when the screen opens; what does not apply to a kind of control is not read.
struct Look
{
    std::optional<QFont> font = {};
    std::optional<QColor> colour = {};     ///< of the text
    std::optional<QColor> background = {}; ///< a label with one is opaque
    bool centred = false;
    bool rightAligned = false;
    bool middle = false; ///< centred from top to bottom
    bool sizedToText = false;
    bool bordered = false;
    bool hidden = false;
    int tab = -1; ///< place in the tab order; a label without one is passed over
};

/// What all screens share: geometry kept in twips, a frame and a place, controls under their names, the
/// events load, activate and unload, and the one place where a failure in a handler becomes a message box.
/// Screens makes, shows and closes forms.
class Form : public QWidget
{
public:
    Form(FormSettings settings, Services services);

    [[nodiscard]] const QString& name() const { return settings_.name; }

    /// Where the window is, in twips. Unrounded as long as only this program moved it.
    [[nodiscard]] TwipRect bounds() const;
    void setBounds(const TwipRect& bounds);
    /// The room that the window takes when it is as large as it gets where it stands.
    [[nodiscard]] virtual TwipRect largestBounds() const { return bounds(); }

    // For Screens only, which sets the first two before it loads the form.
    std::function<void()> onCloseRequest = [] {}; ///< by the window system
    std::function<void()> onWindowActivated = [] {};
    void load();
    void activate();
    void unload();
    void closed();
    [[nodiscard]] bool isClosed() const { return closed_; }
    /// Puts the window of `child` on show inside this one, in front of its siblings.
    virtual void showInside(Form& child) { child.show(); }
    /// The control that had the focus last; null before any had it.
    [[nodiscard]] QWidget* lastFocused() const { return focused_; }
    /// Gives the focus back to it, or to the first control in the tab order if it cannot be used.
    void resumeFocus();
    /// Presses a button or a label as a click on its middle would; nothing where that cannot be clicked.
    void press(QWidget& control);
    [[nodiscard]] bool canPress(const QWidget& control) const;
    /// Has the window fill the screen, or go back to its place.
    void toggleFullScreen();

protected:
    // The events of the screen.
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_GotFocus() {}
    virtual void Form_MouseMove() {}
    virtual void Form_Unload() {}

    /// Told when a handler ends with an exception, which it has caught. Shows its text in a box.
    virtual void failed(const std::exception& failure);

    /// Runs a handler; an exception that leaves it is passed to failed(). Does nothing once the form is
    /// closed.
    void run(const std::function<void()>& handler);

    [[nodiscard]] Services& services() { return services_; }
    [[nodiscard]] Screens& screens() { return services_.screens; }
    /// The title of the screen's boxes.
    [[nodiscard]] virtual QString boxTitle() const { return "Orvanta"; }
    void notice(const QString& text, Dialogs::Icon icon = Dialogs::Icon::None);
    [[nodiscard]] bool confirm(const QString& text);

    // The controls, in the order of the screen's table: what is added first lies on top, except that buttons,
    // boxes and pictures always lie above labels, shapes and lines. Handlers run through run().
    Label* label(const QString& name, const TwipRect& place, const QString& text, const Look& look);
    Button* button(const QString& name, const TwipRect& place, const QString& text, const Look& look);
    QCheckBox* checkBox(const QString& name, const TwipRect& place, const QString& text, const Look& look);
    QPlainTextEdit* textArea(const QString& name, const TwipRect& place, const QString& text,
                             const Look& look);
    /// Empty at first; at most `limit` code points can be typed into it.
    TextBox* textBox(const QString& name, const TwipRect& place, qsizetype limit, const Look& look);
    ChoiceList* choiceList(const QString& name, const TwipRect& place, const Look& look);
    QGroupBox* frame(const QString& name, const TwipRect& place, const QString& text);
    Picture* picture(const QString& name, const TwipRect& place, const QString& resource);
    Shape* shape(const QString& name, const TwipRect& place, const Shape::Style& style, bool hidden = false);
    Line* line(const QString& name, TwipPoint from, TwipPoint to, const QColor& colour, int width,
               bool hidden = false);
    Timer* timer(const QString& name, std::chrono::milliseconds period, bool enabled);
    /// Ends the table of controls: sets the tab order, whose first control has the focus at first, and lifts
    /// what lies above.
    void controlsDone();

    void onClick(Label* control, std::function<void()> handler);
    void onClick(Button* control, std::function<void()> handler);
    void onMouseMove(Label* control, std::function<void()> handler);
    void onChange(QCheckBox* control, std::function<void()> handler);
    /// The handlers run for changes by a handler as well as by the user.
    void onChange(TextBox* control, std::function<void()> handler);
    void onChange(ChoiceList* control, std::function<void()> handler);
    /// The handler is given each character typed into the box and returns false to discard it.
    void onKeyPress(TextBox* control, std::function<bool(QChar)> handler);
    void onTick(Timer* control, std::function<void()> handler);
    /// The handlers run when the focus moves to the control, or from it to another control of the form, by a
    /// handler or by the user; not when another window, a box or a list that drops down has the keyboard for
    /// a while.
    void onGotFocus(QWidget* control, std::function<void()> handler);
    void onLostFocus(QWidget* control, std::function<void()> handler);
    void focus(QWidget* control);

    /// A row of the screen's table of keys. A row with neither control nor action is for the help alone.
    struct KeyRow
    {
        QString keys;                      ///< "F1 Ctrl+1": either of them
        QWidget* control = nullptr;        ///< what they press
        QString words;                     ///< what comes of it, for tool tip and help
        std::function<void()> action = {}; ///< what they do instead of pressing the control
    };
    void addKeys(const std::vector<KeyRow>& rows);
    /// The table as the user reads it, a line a row.
    [[nodiscard]] QString keyHelp() const { return keyHelp_.join('\n'); }
    /// Has a screen reader say it as soon as it can.
    void announce(const QString& text);
    void setDefaultButton(Button* control) { defaultButton_ = control; }

    /// A stretch of a slide: `steps` equal changes of the window's bounds, in twips each.
    struct SlideSteps
    {
        int steps = 0;
        TwipRect change;
    };
    /// Slides the window through the stretches in their order within the running handler. The motion takes
    /// about half a second; no tick of the form's timers and no input is delivered until the handler ends.
    void slide(std::initializer_list<SlideSteps> stretches);

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    template <typename Control>
    Control* add(Control* control, const QString& name, const TwipRect& place);
    void applyLook(QWidget* control, const Look& look);
    void focusMoved(QWidget* control);
    void focusFirst();
    void mark(const QWidget* control);
    [[nodiscard]] TwipRect openingBounds() const;

    FormSettings settings_;
    Services services_;
    TwipRect bounds_; ///< as last set by this program
    std::vector<std::pair<int, QWidget*>> tabs_;
    std::vector<QWidget*> lifted_;
    std::vector<Timer*> timers_;
    using FocusHandlers = std::vector<std::pair<QWidget*, std::function<void()>>>;
    FocusHandlers gotFocus_;
    FocusHandlers lostFocus_;
    QWidget* focused_ = nullptr;
    Button* defaultButton_ = nullptr;
    QRect beforeFullScreen_;      ///< where it was; null if it does not fill the screen
    std::unique_ptr<Shape> mark_; ///< around what has the focus
    QStringList keyHelp_;
    bool sliding_ = false;
    bool closed_ = false;
};

/// The name of an element of a control array.
[[nodiscard]] QString element(const QString& name, int index);

} // namespace toolkit
