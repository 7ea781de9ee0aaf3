#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessaview {

/// One attribute as XML text, with a blank before it.
std::string attributeText(std::string_view name, std::string_view value);

/// Writes an XML text, an element on each line and two blanks for each level. The time it takes is
/// in proportion to what it is given.
class XmlText {
public:
    XmlText();

    /// Begins an element within the one that is open. `element` outlives this.
    void open(std::string_view element);
    /// Gives the element that was begun last its attributes, made by `attributeText`.
    void attributes(std::string_view text) { text_ += text; }
    /// Adds XML text to the element that is open as it stands.
    void content(std::string_view xml);
    void close();
    /// The whole text; every element has been closed.
    std::string take();

private:
    void endStartTag();
    void newLine();

    std::string text_;
    std::vector<std::string_view> elements_; ///< those that are open
    bool inStartTag_ = false;
};

} // namespace tessaview
