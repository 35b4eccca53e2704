// A program that does nothing: the test programs share its precompiled headers.

int main() { return 0; }
