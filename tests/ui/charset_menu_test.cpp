#include "ui/charset_menu.h"

#include "tests/ui/window_test.h"
#include "ui/value_model.h"

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

class CharsetMenuTest : public test::WindowTest {
protected:
    /// A service whose name is one byte without a selector, and one behind the selector 0x01.
    CharsetMenuTest()
    {
        dialogs.read = [](NetworkMap& model) {
            const auto service = test::service(1, "\x01\xA1", "\xA1");
            return model.store(
                1, test::decodedStream({test::sdt(test::kSdtActual, 0, 1, {{1, {service}}})}));
        };
    }

    /// Chooses the item whose texts on the way start so.
    void choose(const std::vector<QString>& way)
    {
        CharsetMenu menu(frame->treePane(), nullptr);
        const QMenu* at = &menu;
        for (const QString& text : way) {
            QAction* found = nullptr;
            for (QAction* const action : at->actions()) {
                if (action->text().remove('&').startsWith(text))
                    found = action;
            }
            ASSERT_TRUE(found) << text.toStdString();
            at = found->menu();
            if (!at)
                found->trigger();
        }
    }

    /// The provider's name and the service's.
    std::pair<std::string, std::string> names() const
    {
        const auto& rows = frame->valuePane().valueModel().rows();
        return {rows.at(4).data, rows.at(6).data};
    }

    using Names = std::pair<std::string, std::string>;
};

TEST_F(CharsetMenuTest, showsTextsWithTheTableThatIsChosen)
{
    openAndScan();
    select("SERVICE_DESCRIPTOR");
    const Names automatic = names();
    choose({"All networks", "Texts without selector", "ISO/IEC 8859-2"});
    EXPECT_EQ(names(), Names(automatic.first, "\u0104"));
    choose({"Network 0001", "All texts", "ISO/IEC 8859-2"});
    EXPECT_EQ(names(), Names("\u0104", "\u0104"));
    frame->action(Command::DatabaseExport)->trigger();
    EXPECT_EQ(dialogs.exportCharsets.ofNetworks(), frame->treePane().charsetPolicy().ofNetworks());
    choose({"Network 0001", "As all networks"});
    EXPECT_EQ(names(), Names(automatic.first, "\u0104"));

    // The choice is there again in the next run.
    frame.reset();
    openAndScan();
    select("SERVICE_DESCRIPTOR");
    EXPECT_EQ(names(), Names(automatic.first, "\u0104"));
    choose({"All networks", "Automatic"});
    EXPECT_EQ(names(), automatic);
}

} // namespace
