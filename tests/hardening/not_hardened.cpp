// A program without any hardening, for the check to refuse.
int main() { return 0; }
