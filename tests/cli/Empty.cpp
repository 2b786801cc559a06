// A program that does nothing, linked to the same shared libraries as the real one.
int main() {}
