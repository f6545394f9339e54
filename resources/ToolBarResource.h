#pragma once
// A tool bar as the program keeps it (resource type 241): the little-endian 16-bit words
// version (1), button width (16), button height (15), button count, then one command id per
// button, 0 for a separator. The button images are the bitmap with the tool bar's id, one slice of
// the button width per button that is not a separator, in order.

#include <QByteArray>
#include <QPixmap>

#include <optional>
#include <vector>

class ToolBarResource {
public:
    // The tool bar of that id; nothing when there is none or it is malformed.
    static std::optional<ToolBarResource> load(int id);
    // Reads the binary form; nothing when it is short, of another version, or holds more or fewer
    // ids than its count.
    static std::optional<ToolBarResource> parse(const QByteArray& bytes, int id = 0);

    int id() const { return m_id; }
    int buttonWidth() const { return m_width; }
    int buttonHeight() const { return m_height; }
    // The command of each button in order, 0 for a separator.
    const std::vector<int>& commands() const { return m_commands; }
    // The image of the index-th button that is not a separator, masked on pure green.
    QPixmap buttonImage(int imageIndex) const;

private:
    int m_id = 0;
    int m_width = 0;
    int m_height = 0;
    std::vector<int> m_commands;
};
