pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Corvane.Shell
import Corvane.Services

/// The sheets of the services, one at a time, and the settings window.
Item {
    id: sheets

    /// Whether another sheet of the window is open.
    required property bool blocked

    readonly property bool asking: welcome.open || crash.open || feedback.open
    readonly property bool shown: Window.visibility !== Window.Hidden

    property SettingsWindow settingsWindow: null

    signal privacyPolicyWanted

    /// Creates the window on first use.
    function openSettings() {
        if (settingsWindow === null)
            settingsWindow = settingsComponent.createObject(sheets) as SettingsWindow;
        settingsWindow.open();
    }

    OnboardingPresenter {
        id: welcomePresenter
    }
    FeedbackPresenter {
        id: feedbackPresenter
    }
    SettingsPresenter {
        id: settingsPresenter
    }

    SheetOpener {
        id: welcome

        wanted: welcomePresenter.wanted
        blocked: sheets.blocked || !sheets.shown || crash.open || feedback.open
        component: Component {
            WelcomeSheet {
                onboarding: welcomePresenter
            }
        }
    }
    SheetOpener {
        id: crash

        wanted: Services.crashReporter.showPrompt
        blocked: sheets.blocked || !sheets.shown || welcomePresenter.wanted || welcome.open || feedback.open
        component: Component {
            CrashPrompt {
                onConfirmed: Services.crashReporter.sendPending(false)
                onOtherChosen: Services.crashReporter.sendPending(true)
                onCancelled: Services.crashReporter.showPrompt = false
            }
        }
    }
    SheetOpener {
        id: feedback

        wanted: feedbackPresenter.wanted
        blocked: sheets.blocked || !sheets.shown || welcomePresenter.wanted || welcome.open || crash.wanted || crash.open
        component: Component {
            FeedbackSheet {
                feedback: feedbackPresenter
            }
        }
    }
    Component {
        id: settingsComponent

        SettingsWindow {
            settings: settingsPresenter
            transientParent: sheets.Window.window
            onPrivacyPolicyWanted: sheets.privacyPolicyWanted()
        }
    }
}
