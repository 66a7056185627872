#include "app/application.h"
#include "foundation/forms/window_helpers.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    vandrel::Application application(argc, argv);
    vandrel::prepareApplication(application);
    application.setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
