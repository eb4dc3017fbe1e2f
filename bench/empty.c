// The least that running a program can cost.
int main(void)
{
    return 0;
}
