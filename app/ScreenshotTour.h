#pragma once
// Writes PNG pictures of the device screen (240 x 320 at scale 1): the start-up box, the release
// notes, every tab, the menu open, the Options dialog, the strength screens with a workout and the food page
// with a day's food, the drop-down lists open, the reports, the photo, the users. Runs the whole program
// offscreen on a fresh temporary device with the clock fixed, driving it as a user would.

#include <QImage>
#include <QObject>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <functional>

class KovalinApp;
class QDialog;
class QWidget;

class ScreenshotTour : public QObject {
    Q_OBJECT
public:
    // At scale 1 every picture is written; at a larger scale only those of the screens a person
    // reads closely, named with "-x" and the scale ("today-summary-x2.png").
    ScreenshotTour(const QString& directory, int scale);

    // 0 when every picture was written.
    int run();
    const QStringList& written() const { return m_written; }

private:
    void onStartupText(const QString& text);
    void answerReleaseNotes();
    void tourPages();
    // The photo viewer with a picture of our own.
    void tourPhoto();
    // The strength pages with a workout listed, their menus, the set-entry grid, the exercise picker
    // and the item list editor.
    void tourStrength();
    // The food page with a day filled in, its meal list and counts, both list menus, the meal dialog
    // with a food list open and a refused number.
    void tourFood();
    // The device controls while typing, the calendar pop-up and a refused number.
    void tourControls();
    // The aerobic page: a day of three exercises, each shown, the intensity boxes shown and hidden,
    // and the delete question.
    void tourAerobic();
    // The Today page with a workout, a meal to come and goals; the calendar of a busy month and the
    // pop-up of a day with two kinds of training.
    void tourOverview();
    // The reports page over a year of history: body weight over the year, a set's weight over twelve
    // weeks with a point tapped, the workouts per week and a measure without entries.
    void tourReports();
    // The users: the select-user dialog, the Today page after a switch, the editor in user mode and
    // the question before a user is deleted.
    void tourUsers();
    // The visible dialog of that name on the screen, or nullptr.
    QDialog* visibleDialog(const QString& name) const;
    // Highlights the row of text in dialog's list box (1028).
    static void selectRow(QWidget* dialog, const QString& text);
    // The Utilities dialog: idle, a backup under way, its closing message and the dialog after it, the
    // restore question and the delete confirmation.
    void tourUtilities();
    // Import: the choice between version 1 data and files, the desktop's file dialog over the device
    // screen, the report after the FitNotes sample came in, and the imported week on the upper-body
    // page, the calendar and the reports.
    void tourImport();
    // The device screen on a piece of desktop with window drawn over it, as a person sees the two.
    QImage grabDesktop(QWidget* window) const;
    // Acts on the dialog of that name once it is up, however long that takes.
    void whenVisible(const QString& dialogName, const std::function<void(QDialog*)>& act);
    // A tap on the first field of target, and keys typed into it as a person types them.
    static void tapStart(QWidget* target);
    static void type(QWidget* target, const QString& text, int key = 0);
    // Opens target's context menu at position and takes the picture while it is up.
    void openContextMenu(QWidget* target, const QPoint& position, const QString& name);
    // Takes the picture once the dialog of that name is up (typing typed into its edit), then closes it.
    void whenUp(const QString& dialogName, const QString& name, const QString& typed = {});
    // Triggers the command's action on the screen.
    void command(int id);
    QImage grabScreen() const;
    void save(const QImage& image, const QString& name);

    QString m_directory;
    int m_scale;
    KovalinApp* m_app = nullptr;
    QStringList m_written;
    QStringList m_failed;
};
