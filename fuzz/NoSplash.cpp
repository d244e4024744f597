// Stands for spec/SplashScreen.cpp in the played sessions: making the picture of a window that goes
// at once, and a thread for it, took a fifth of the time.
#include "spec/SplashScreen.h"

TSplashScreen::TSplashScreen() = default;
TSplashScreen::~TSplashScreen() = default;
void TSplashScreen::Terminate() {}
